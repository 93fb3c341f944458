// SPDX-License-Identifier: MIT
// A text of WKT, read into a tree and by both families of systems, against slow references; the
// systems then write what they hold.
#include <quarnfc/error.h>
#include <quarnfc/projected.h>
#include <quarnfc/string_utils.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/wkt_reference.h"
#include "geo/wkt_reader.h"

namespace {

using Node = fuzz::WktReferenceNode;
namespace messages = quarnfc::geo::messages;

// The reference recurses.
constexpr int kMaxBrackets = 2000;

// --- the tree -----------------------------------------------------------------------------------

// Tells zeros of either sign apart.
std::uint64_t BitsOf(double number) { return std::bit_cast<std::uint64_t>(number); }

void ExpectEqual(const quarnfc::geo::CWKTDef& node, const Node& expected);

void ExpectEqual(const quarnfc::geo::CWKTDefValue& value, const Node& expected) {
  using quarnfc::geo::WktKind;
  if (expected.kind == Node::Kind::kNode) {
    fuzz::Expect(value.Kind() == WktKind::kNode);
    return ExpectEqual(*value.Node(), expected);
  }
  fuzz::Expect(static_cast<int>(value.Kind()) == static_cast<int>(expected.kind) + 1);
  fuzz::Expect(fuzz::BytesOf(value.Text()) == expected.text);
  fuzz::Expect(BitsOf(value.Number()) == BitsOf(expected.number));
}

void ExpectEqual(const quarnfc::geo::CWKTDef& node, const Node& expected) {
  fuzz::Expect(fuzz::BytesOf(node.Keyword()) == expected.text);
  fuzz::Expect(node.Values().size() == expected.values.size());
  for (std::size_t i = 0; i < expected.values.size(); ++i) {
    ExpectEqual(*node.Values()[i], expected.values[i]);
  }
}

void CheckTree(const std::string& text, bool is_read, const Node& root,
               const std::string& message) {
  quarnfc::geo::CWKTDef tree;
  CQNString error;
  fuzz::Expect(tree.Parse(text.c_str(), error) == is_read);
  fuzz::Expect(fuzz::BytesOf(error) == message);
  if (is_read) ExpectEqual(tree, root);
}

// --- what systems take from the tree: the message, "" for success -------------------------------

std::string SetGeographic(const Node& root, CQNGeoCoordinateSystem& system) {
  const Node* node = fuzz::IsSameName(root.text, "GEOGCS") ? &root : nullptr;
  if (fuzz::IsSameName(root.text, "PROJCS")) node = root.Child("GEOGCS");
  if (node != nullptr) node = node->Child("DATUM");
  if (node != nullptr) node = node->Child("SPHEROID");
  if (node == nullptr || node->values.size() < 3 || node->values[1].kind != Node::Kind::kNumber ||
      node->values[2].kind != Node::Kind::kNumber) {
    return messages::kNoSpheroid;
  }
  system.set(node->values[1].number, node->values[2].number);
  return "";
}

bool FindParameter(const Node& root, const char* name, double& number) {
  for (const Node& value : root.values) {
    if (value.kind != Node::Kind::kNode || !fuzz::IsSameName(value.text, "PARAMETER") ||
        value.values.size() < 2 || value.values[0].kind != Node::Kind::kQuoted ||
        !fuzz::IsSameName(value.values[0].text, name)) {
      continue;
    }
    if (value.values[1].kind != Node::Kind::kNumber) return false;
    number = value.values[1].number;
    return true;
  }
  return false;
}

std::string SetProjected(const Node& root, CQNProCoordinateSystem& system) {
  CQNGeoCoordinateSystem geographic;
  double meridian = 120;
  double easting = 500000;
  double northing = 0;
  double scale = 1;
  const auto read = [&]() -> std::string {
    const std::string message = SetGeographic(root, geographic);
    if (!message.empty()) return message;
    const bool projected = fuzz::IsSameName(root.text, "PROJCS");
    const Node* const projection = projected ? root.Child("PROJECTION") : nullptr;
    if (projection == nullptr || projection->values.empty() ||
        projection->values[0].kind != Node::Kind::kQuoted) {
      return messages::kNoProjection;
    }
    const std::string& name = projection->values[0].text;
    if (!fuzz::IsSameName(name, "Transverse_Mercator")) {
      return fuzz::Filled(messages::kWrongProjection, name);
    }
    if (!FindParameter(root, "central_meridian", meridian)) return messages::kNoCentralMeridian;
    if (!FindParameter(root, "false_easting", easting)) return messages::kNoFalseEasting;
    if (!FindParameter(root, "false_northing", northing)) return messages::kNoFalseNorthing;
    return FindParameter(root, "scale_factor", scale) ? "" : messages::kNoScaleFactor;
  };
  const std::string message = read();
  system.set(geographic, meridian, easting, northing, scale);
  return message;
}

// --- the systems --------------------------------------------------------------------------------

// A message comes with every refusal and never with success. What is written fits its buffer.
template <class System>
std::string SetFromWkt(const std::string& text, std::size_t buffer_size, System& system) {
  char* error = nullptr;
  const bool accepted = system.SetFromWKTA(text.c_str(), &error);
  fuzz::Expect(accepted == (error == nullptr));
  const std::string message = accepted ? "" : error;
  fuzz::Expect(accepted == message.empty());
  qnFreeMem(error);

  char* const written = system.CreateWKT();
  fuzz::Expect(std::strlen(written) < buffer_size);
  qnFreeMem(written);
  return message;
}

template <class System>
void ExpectEqual(const System& system, const System& expected) {
  // Whole objects: their layouts have no gaps that could differ by chance.
  const void* const bytes = &system;
  const void* const expected_bytes = &expected;
  fuzz::Expect(std::memcmp(bytes, expected_bytes, sizeof(system)) == 0);
}

// The text as it comes back from UTF-16: broken characters are question marks.
std::string Whole(const std::string& text) {
  std::vector<wchar_t> wide(text.size() + 2);
  QNStringUtils::Ansi2Unicode(text.c_str(), wide.data(), static_cast<int>(text.size() + 1));
  std::vector<char> bytes(2 * text.size() + 2);
  QNStringUtils::Unicode2Ansi(wide.data(), bytes.data(), static_cast<int>(2 * text.size() + 1));
  return bytes.data();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::Input(data, size).Text();
  if (std::count(text.begin(), text.end(), '[') > kMaxBrackets) return 0;
  const std::string whole = Whole(text);
  fuzz::WktReference reference(whole);
  Node root;
  const bool is_read = reference.Read(root);
  CheckTree(whole, is_read, root, reference.Message());

  CQNGeoCoordinateSystem geographic;
  CQNGeoCoordinateSystem expected_geographic;
  fuzz::Expect(SetFromWkt(text, 512, geographic) ==
               (is_read ? SetGeographic(root, expected_geographic) : reference.Message()));
  ExpectEqual(geographic, expected_geographic);

  CQNProCoordinateSystem projected;
  CQNProCoordinateSystem expected_projected;
  fuzz::Expect(SetFromWkt(text, 1024, projected) ==
               (is_read ? SetProjected(root, expected_projected) : reference.Message()));
  ExpectEqual(projected, expected_projected);
  return 0;
}
