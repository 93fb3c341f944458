// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>
#include <quarnfc/error_json.h>

#include <memory>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::ObjectPtr;
using json_test::TakeText;

constexpr CQNObject::EErrorStatus kNone = CQNObject::eErrNone;
constexpr CQNObject::EErrorStatus kInvalidData = CQNObject::eErrInvalidData;

std::string Document(const std::string& text, int code) {
  return "{\r\n\t\"Error\":{\r\n\t\t\"DisplayText\":\"" + text +
         "\",\r\n\t\t\"ErrorCode\":" + std::to_string(code) + "\r\n\t}\r\n}";
}

constexpr char kDocumentOfCodeNone[] = "{\r\n\t\"Error\":{\r\n\t\t\"ErrorCode\":0\r\n\t}\r\n}";

TEST(ErrorJson, HandleGivesItsMessageAndCode) {
  const ObjectPtr document(
      QNErrorUtils::CreateErrorJson(QNErrorUtils::CreateError(kInvalidData, "bad"), "unused"));
  EXPECT_EQ(Compact(*document), R"({"Error":{"DisplayText":"bad","ErrorCode":5}})");
}

TEST(ErrorJson, HandleWithCodeNoneGivesTheCodeAlone) {
  const ObjectPtr document(
      QNErrorUtils::CreateErrorJson(QNErrorUtils::CreateError(kNone, "ignored"), "unused"));
  EXPECT_EQ(Compact(*document), R"({"Error":{"ErrorCode":0}})");
}

TEST(ErrorJson, WithoutAHandleTheTextOrTheDefaultTextGetsCodeOne) {
  const ObjectPtr with_text(QNErrorUtils::CreateErrorJson(0, "x"));
  EXPECT_EQ(Compact(*with_text), R"({"Error":{"DisplayText":"x","ErrorCode":1}})");
  const ObjectPtr without(QNErrorUtils::CreateErrorJson(0, nullptr));
  EXPECT_EQ(Compact(*without),
            "{\"Error\":{\"DisplayText\":\"\xCE\xB4\xB6\xA8\xD2\xE5\xB4\xED\xCE\xF3\","
            "\"ErrorCode\":1}}");
}

TEST(ErrorJson, HandleIsConsumedByOneReference) {
  auto* error = new CQNObject;
  error->SetError(kInvalidData, "kept");
  error->AddRef();
  const ObjectPtr document(
      QNErrorUtils::CreateErrorJson(reinterpret_cast<std::size_t>(error), nullptr));
  EXPECT_STREQ(error->GetErrorMsg(), "kept");
  error->AddRef();
  EXPECT_EQ(
      TakeText(QNErrorUtils::CreateErrorUTF8JsonByHandle(reinterpret_cast<std::size_t>(error))),
      Document("kept", 5));
  EXPECT_STREQ(error->GetErrorMsg(), "kept");
  error->Release();
}

TEST(ErrorJson, UTF8TextIsIndented) {
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8Json(kInvalidData, "bad")), Document("bad", 5));
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8Json(kInvalidData, nullptr)), Document("", 5));
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8Json(kNone, "ignored")), kDocumentOfCodeNone);
}

TEST(ErrorJson, MessageInTheCodePageBecomesUTF8) {
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8Json(kInvalidData, "\xD6\xD0\"\n")),
            Document("\xE4\xB8\xAD\\\"\\n", 5));
}

TEST(ErrorJson, TextByHandleIsNullWithoutAHandle) {
  EXPECT_EQ(QNErrorUtils::CreateErrorUTF8JsonByHandle(0), nullptr);
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByHandle(
                QNErrorUtils::CreateError(kInvalidData, "bad"))),
            Document("bad", 5));
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByHandle(
                QNErrorUtils::CreateError(kNone, "ignored"))),
            kDocumentOfCodeNone);
}

TEST(ErrorJson, TextByObjectJoinsThePrefixWithoutABlank) {
  CQNObject object;
  object.SetError(kInvalidData, "failed");
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByObj(&object, "Load:")),
            Document("Load:failed", 5));
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByObj(&object, nullptr)),
            Document("failed", 5));
  EXPECT_STREQ(object.GetErrorMsg(), "failed");
  EXPECT_EQ(object.GetErrorCode(), kInvalidData);
}

TEST(ErrorJson, ObjectWithoutAMessageReadsAsTheEmptyText) {
  CQNObject object;
  object.SetErrorCode(kInvalidData);
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByObj(&object, nullptr)), Document("", 5));
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8JsonByObj(&object, "Load:")),
            Document("Load:", 5));
  EXPECT_EQ(QNErrorUtils::CreateErrorUTF8JsonByObj(nullptr, "Load:"), nullptr);
}

TEST(ErrorJson, CodeOfTheHostIsCarried) {
  const auto code = static_cast<CQNObject::EErrorStatus>(-7);
  EXPECT_EQ(TakeText(QNErrorUtils::CreateErrorUTF8Json(code, "host")), Document("host", -7));
}

}  // namespace
