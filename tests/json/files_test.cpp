// SPDX-License-Identifier: MIT
#include <quarnfc/json_files.h>
#include <quarnfc/object.h>
#include <quarnfc/plain.h>

#include <cstdio>
#include <filesystem>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::Read;
using json_test::Repeat;
using json_test::ValuePtr;

constexpr unsigned __int64 kUntouched = 77;
constexpr char kMark[] = "\xEF\xBB\xBF";

// A file in the folder for temporary files, removed at the end.
class TestFile {
 public:
  explicit TestFile(const std::string& name = "quarnfc_files_test.json")
      : path_(testing::TempDir() + name) {
    std::remove(Path());
  }
  TestFile(const std::string& name, const std::string& bytes) : TestFile(name) { Write(bytes); }
  TestFile(const TestFile&) = delete;
  TestFile& operator=(const TestFile&) = delete;
  ~TestFile() { std::remove(Path()); }

  const char* Path() const { return path_.c_str(); }

  void Write(const std::string& bytes) {
    std::FILE* file = std::fopen(Path(), "wb");
    ASSERT_NE(file, nullptr) << path_;
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
  }

  std::string Bytes() const {
    std::FILE* file = std::fopen(Path(), "rb");
    if (file == nullptr) return "no file";
    std::string bytes(100000, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    return bytes;
  }

 private:
  std::string path_;
};

// What the four functions have in common: each is run on a path, with or without an error handle.
struct Function {
  const char* name;
  bool (*run)(const char* path, unsigned __int64* error);
};

bool ReadObject(const char* path, unsigned __int64* error) {
  CMyJsonObj object;
  return QNJsonUtils::ReadJsonFile(path, object, error);
}
bool ReadValue(const char* path, unsigned __int64* error) {
  CMyJsonValue value;
  return QNJsonUtils::ReadJsonFileEx(path, value, error);
}
bool SaveObject(const char* path, unsigned __int64* error) {
  return QNJsonUtils::SaveJsonFile(path, CMyJsonObj(), error);
}
bool SaveValue(const char* path, unsigned __int64* error) {
  return QNJsonUtils::SaveJsonFileEx(path, CMyJsonValue("text"), true, error);
}

constexpr Function kReaders[] = {{"ReadJsonFile", ReadObject}, {"ReadJsonFileEx", ReadValue}};
constexpr Function kSavers[] = {{"SaveJsonFile", SaveObject}, {"SaveJsonFileEx", SaveValue}};

struct Error {
  unsigned int code = 0;
  std::string message;
};

// Runs a function that must fail and takes its error.
Error Fail(const Function& function, const char* path) {
  EXPECT_FALSE(function.run(path, nullptr)) << function.name;
  unsigned __int64 handle = kUntouched;
  EXPECT_FALSE(function.run(path, &handle)) << function.name;
  if (handle == kUntouched) {
    ADD_FAILURE() << function.name << " left the error untouched";
    return {};
  }
  Error error;
  error.message = json_test::TakeText(qnGetErrorA(handle, &error.code));
  qnCloseHandle(handle);
  return error;
}

void Succeed(const Function& function, const char* path) {
  EXPECT_TRUE(function.run(path, nullptr)) << function.name;
  unsigned __int64 handle = kUntouched;
  EXPECT_TRUE(function.run(path, &handle)) << function.name;
  EXPECT_EQ(handle, kUntouched) << function.name;
}

// --- files that cannot be opened ----------------------------------------------------------------

TEST(JsonFiles, MissingFileIsNotFound) {
  for (const Function& reader : kReaders) {
    const Error error = Fail(reader, "c:\\x.json");
    EXPECT_EQ(error.code, 2u);
    EXPECT_EQ(error.message, "Quarn: Can't open c:\\x.json, error: 0x2");
  }
}

TEST(JsonFiles, MissingFolderIsNotFoundToReadAndAFailureToSave) {
  const std::string path = testing::TempDir() + "quarnfc_no_folder/x.json";
  for (const Function& reader : kReaders) {
    const Error error = Fail(reader, path.c_str());
    EXPECT_EQ(error.code, 2u);
    EXPECT_EQ(error.message.find("Quarn: Can't open " + path + ", error: 0x"), 0u);
  }
  for (const Function& saver : kSavers) {
    const Error error = Fail(saver, path.c_str());
    EXPECT_EQ(error.code, 14u);
    EXPECT_EQ(error.message.find("Quarn: Can't save " + path + ", error: 0x"), 0u);
  }
}

TEST(JsonFiles, FolderAsAPathIsDenied) {
  const std::string folder = testing::TempDir() + "quarnfc_folder.json";
  std::filesystem::create_directory(folder);
  for (const Function& reader : kReaders) {
    const Error error = Fail(reader, folder.c_str());
    EXPECT_EQ(error.code, 14u);
    EXPECT_EQ(error.message, "Quarn: Can't open " + folder + ", error: 0x5");
  }
  for (const Function& saver : kSavers) {
    const Error error = Fail(saver, folder.c_str());
    EXPECT_EQ(error.code, 14u);
    EXPECT_EQ(error.message, "Quarn: Can't save " + folder + ", error: 0x5");
  }
  std::filesystem::remove(folder);
}

TEST(JsonFiles, NullAndEmptyPathsFail) {
  for (const Function& reader : kReaders) {
    EXPECT_EQ(Fail(reader, "").code, 2u);
    const Error error = Fail(reader, nullptr);
    EXPECT_EQ(error.code, 14u);
    EXPECT_EQ(error.message, "Quarn: Can't open (null), error: 0x57");
  }
  for (const Function& saver : kSavers) {
    EXPECT_EQ(Fail(saver, "").code, 14u);
    EXPECT_EQ(Fail(saver, nullptr).message, "Quarn: Can't save (null), error: 0x57");
  }
}

TEST(JsonFiles, PathOfAnyLengthIsNamedWhole) {
  const std::string path = testing::TempDir() + Repeat("x", 100000);
  for (const Function& reader : kReaders) {
    EXPECT_EQ(Fail(reader, path.c_str()).message.find("Quarn: Can't open " + path + ", error: 0x"),
              0u);
  }
  for (const Function& saver : kSavers) {
    EXPECT_EQ(Fail(saver, path.c_str()).message.find("Quarn: Can't save " + path + ", error: 0x"),
              0u);
  }
}

TEST(JsonFiles, FailureToOpenLeavesTheTargetUntouched) {
  CMyJsonObj object;
  object.AddItem("kept", 1);
  EXPECT_FALSE(QNJsonUtils::ReadJsonFile("c:\\x.json", object, nullptr));
  EXPECT_EQ(Compact(object), R"({"kept":1})");
  CMyJsonValue value("kept");
  EXPECT_FALSE(QNJsonUtils::ReadJsonFileEx("c:\\x.json", value, nullptr));
  EXPECT_EQ(Compact(value), "\"kept\"");
}

// --- lengths ------------------------------------------------------------------------------------

void ExpectInvalidLength(const TestFile& file) {
  for (const Function& reader : kReaders) {
    const Error error = Fail(reader, file.Path());
    EXPECT_EQ(error.code, 5u);
    EXPECT_EQ(error.message, "Quarn: " + std::string(file.Path()) + " file length is invalid");
  }
  CMyJsonObj object;
  object.AddItem("kept", 1);
  EXPECT_FALSE(QNJsonUtils::ReadJsonFile(file.Path(), object, nullptr));
  EXPECT_EQ(Compact(object), R"({"kept":1})");
}

TEST(JsonFiles, FilesOfLessThanElevenBytesAreRefused) {
  TestFile file;
  for (const char* bytes : {"", "{}", "{\"abcd\":1}"}) {
    file.Write(bytes);
    ExpectInvalidLength(file);
  }
  file.Write("{\"abcd\":1} ");
  for (const Function& reader : kReaders) Succeed(reader, file.Path());
}

TEST(JsonFiles, FilesOfMoreThanFiftyMebibytesAreRefused) {
  const TestFile file("quarnfc_files_test.json", "{\"abcd\":1} ");
  for (const std::uintmax_t length : {52428799, 52428800}) {
    std::filesystem::resize_file(file.Path(), length);
    for (const Function& reader : kReaders) Succeed(reader, file.Path());
  }
  std::filesystem::resize_file(file.Path(), 52428801);
  ExpectInvalidLength(file);
}

TEST(JsonFiles, LengthsBeyondThirtyTwoBitsAreNotCutDown) {
  const TestFile file("quarnfc_files_test.json", "{\"abcd\":1} ");
  for (const std::uintmax_t length : {0x80000000u + 100ull, 0x100000000ull + 100}) {
    std::filesystem::resize_file(file.Path(), length);
    ExpectInvalidLength(file);
  }
}

// --- text ---------------------------------------------------------------------------------------

TEST(JsonFiles, ZeroByteEndsTheText) {
  const TestFile file("quarnfc_files_test.json", std::string("{\"a\":1}\0\0{\"b\":2}", 16));
  CMyJsonObj object;
  EXPECT_TRUE(QNJsonUtils::ReadJsonFile(file.Path(), object, nullptr));
  EXPECT_EQ(Compact(object), R"({"a":1})");
}

TEST(JsonFiles, TextThatCannotBeReadIsInvalidData) {
  const TestFile file("quarnfc_files_test.json", "{\"abcdef\" 1}");
  const Error object_error = Fail(kReaders[0], file.Path());
  EXPECT_EQ(object_error.code, 5u);
  EXPECT_EQ(object_error.message, "Can't find ':' : 1}");
  const Error value_error = Fail(kReaders[1], file.Path());
  EXPECT_EQ(value_error.code, 5u);
  EXPECT_EQ(value_error.message,
            "\xCE\xDE\xD0\xA7\xB5\xC4json\xA3\xAC"
            "Can't find ':' : 1}");
}

TEST(JsonFiles, ValueWithoutAReasonHasThePrefixAlone) {
  const TestFile file("quarnfc_files_test.json", "[1,2,3,4,5,6 ");
  EXPECT_EQ(Fail(kReaders[1], file.Path()).message, "\xCE\xDE\xD0\xA7\xB5\xC4json\xA3\xAC");
}

TEST(JsonFiles, TextThatCannotBeReadEmptiesTheTarget) {
  const TestFile file("quarnfc_files_test.json", "{\"abcdef\" 1}");
  CMyJsonObj object;
  object.AddItem("lost", 1);
  EXPECT_FALSE(QNJsonUtils::ReadJsonFile(file.Path(), object, nullptr));
  EXPECT_EQ(object.ValueCount(), 0);
  EXPECT_STREQ(object.GetErrMsg(), "Can't find ':' : 1}");
  CMyJsonValue value(true);
  EXPECT_FALSE(QNJsonUtils::ReadJsonFileEx(file.Path(), value, nullptr));
  EXPECT_TRUE(value.IsEmpty());
}

TEST(JsonFiles, MarkMakesTheTextUTF8) {
  const std::string utf8 = "{\"\xE4\xB8\xAD\":\"\xE6\x96\x87\"}";
  const TestFile marked("quarnfc_marked.json", kMark + utf8);
  const TestFile plain("quarnfc_plain.json", utf8);
  CMyJsonObj object;
  EXPECT_TRUE(QNJsonUtils::ReadJsonFile(marked.Path(), object, nullptr));
  EXPECT_EQ(Compact(object), "{\"\xD6\xD0\":\"\xCE\xC4\"}");
  EXPECT_TRUE(QNJsonUtils::ReadJsonFile(plain.Path(), object, nullptr));
  EXPECT_EQ(Compact(object), utf8);
}

TEST(JsonFiles, CharactersTheCodePageLacksBecomeItsDefaultCharacter) {
  const TestFile file("quarnfc_files_test.json", std::string(kMark) + "{\"a\":\"\xE0\xB8\x81!\"}");
  CMyJsonObj object;
  EXPECT_TRUE(QNJsonUtils::ReadJsonFile(file.Path(), object, nullptr));
  EXPECT_EQ(Compact(object), "{\"a\":\"?!\"}");
}

TEST(JsonFiles, MarkAloneAndInvalidUTF8AreReadSafely) {
  const TestFile blank("quarnfc_blank.json", kMark + Repeat(" ", 8));
  for (const Function& reader : kReaders) EXPECT_EQ(Fail(reader, blank.Path()).code, 5u);
  const TestFile invalid("quarnfc_invalid.json", std::string(kMark) + "{\"a\":\"\xFF\xC0\xE4\"}  ");
  for (const Function& reader : kReaders) reader.run(invalid.Path(), nullptr);
}

// --- saving -------------------------------------------------------------------------------------

TEST(JsonFiles, ObjectIsSavedIndentedInTheCodePage) {
  const TestFile file("quarnfc_files_test.json", Repeat("longer than what is saved ", 10));
  CMyJsonObj object;
  object.AddItem("\xD6\xD0", "\xCE\xC4");
  unsigned __int64 error = kUntouched;
  EXPECT_TRUE(QNJsonUtils::SaveJsonFile(file.Path(), object, &error));
  EXPECT_EQ(error, kUntouched);
  EXPECT_EQ(file.Bytes(), "{\r\n\t\"\xD6\xD0\":\"\xCE\xC4\"\r\n}");
}

TEST(JsonFiles, ValueIsSavedInTheCodePageOrAsUTF8WithTheMark) {
  const TestFile file;
  const ValuePtr value = Read("[{\"\xD6\xD0\":\"\xCE\xC4\"}]");
  EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(file.Path(), *value, false, nullptr));
  EXPECT_EQ(file.Bytes(), "[\r\n\t\t{\r\n\t\t\t\"\xD6\xD0\":\"\xCE\xC4\"\r\n\t\t}\r\n\t]");
  EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(file.Path(), *value, true, nullptr));
  EXPECT_EQ(file.Bytes(), std::string(kMark) +
                              "[\r\n\t\t{\r\n\t\t\t\"\xE4\xB8\xAD\":\"\xE6\x96\x87\"\r\n\t\t}"
                              "\r\n\t]");
  CMyJsonValue reread;
  EXPECT_TRUE(QNJsonUtils::ReadJsonFileEx(file.Path(), reread, nullptr));
  EXPECT_TRUE(json_test::SameTree(*value, reread));
}

TEST(JsonFiles, EmptyValueIsSavedAsNothingButTheMark) {
  const TestFile file;
  EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(file.Path(), CMyJsonValue(), false, nullptr));
  EXPECT_EQ(file.Bytes(), "");
  EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(file.Path(), CMyJsonValue(), true, nullptr));
  EXPECT_EQ(file.Bytes(), kMark);
}

TEST(JsonFiles, SavedNumberDoesNotReadBack) {
  const TestFile file;
  EXPECT_TRUE(QNJsonUtils::SaveJsonFileEx(file.Path(), CMyJsonValue(5), false, nullptr));
  EXPECT_EQ(file.Bytes(), "5");
  ExpectInvalidLength(file);
  EXPECT_TRUE(
      QNJsonUtils::SaveJsonFileEx(file.Path(), CMyJsonValue(12345678901.0), false, nullptr));
  EXPECT_EQ(file.Bytes(), "12345678901");
  EXPECT_EQ(Fail(kReaders[1], file.Path()).message,
            "\xCE\xDE\xD0\xA7\xB5\xC4json\xA3\xAC"
            "\xCE\xDE\xD0\xA7\xB5\xC4json\xD7\xD6\xB7\xFB\xB4\xAE");
}

TEST(JsonFiles, PathsAreInTheCodePage) {
  const TestFile file("quarnfc_\xD6\xD0\x81\x5C.json");
  for (const Function& saver : kSavers) Succeed(saver, file.Path());
  EXPECT_EQ(file.Bytes(), std::string(kMark) + "\"text\"");
}

}  // namespace
