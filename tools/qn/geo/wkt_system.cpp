// SPDX-License-Identifier: MIT
#include "qn/geo/wkt_system.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "qn/errors.h"
#include "qn/geo/point.h"

namespace qn {
namespace {

char Lower(char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch; }

// In lower case, without what writers put differently between words.
std::string Folded(std::string_view text) {
  std::string folded;
  for (const char ch : text) {
    if (ch != ' ' && ch != '_' && ch != '-') folded += Lower(ch);
  }
  return folded;
}

// --- the tree -----------------------------------------------------------------------------------

struct Node {
  std::string keyword;       // of a node
  std::string text;          // of a text, word or number
  std::vector<Node> values;  // of a node

  const Node* Find(std::string_view wanted) const {
    const auto found = std::find_if(values.begin(), values.end(), [&](const Node& each) {
      return !each.keyword.empty() && Folded(each.keyword) == wanted;
    });
    return found == values.end() ? nullptr : &*found;
  }

  std::string TextAt(std::size_t index) const {
    return index < values.size() ? values[index].text : "";
  }
};

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  Node Read() {
    Node root = ReadValue(0);
    SkipBlanks();
    if (root.keyword.empty()) Refuse("it is no keyword with a bracketed list");
    if (!text_.empty()) Refuse("text follows the closing bracket");
    return root;
  }

 private:
  [[noreturn]] static void Refuse(const std::string& why) {
    throw Failure("the WKT cannot be read: " + why);
  }

  void SkipBlanks() {
    text_.remove_prefix(std::min(text_.find_first_not_of(" \t\r\n"), text_.size()));
  }

  bool TakeOneOf(std::string_view set) {
    SkipBlanks();
    if (text_.empty() || set.find(text_[0]) == std::string_view::npos) return false;
    text_.remove_prefix(1);
    return true;
  }

  Node ReadValue(int depth) {
    constexpr int kDeepest = 32;
    if (depth > kDeepest) Refuse("it is nested too deeply");
    Node node;
    SkipBlanks();
    if (text_.starts_with('"')) {
      node.text = ReadQuoted();
      return node;
    }
    const std::size_t length = std::min(text_.find_first_of("[](), \t\r\n\""), text_.size());
    if (length == 0) Refuse("a value is missing");
    node.text = text_.substr(0, length);
    text_.remove_prefix(length);
    if (!TakeOneOf("[(")) return node;
    node.keyword = std::move(node.text);
    node.text.clear();
    do node.values.push_back(ReadValue(depth + 1));
    while (TakeOneOf(","));
    if (!TakeOneOf("])")) Refuse("brackets do not match");
    return node;
  }

  std::string ReadQuoted() {
    text_.remove_prefix(1);
    std::string quoted;
    for (;;) {
      const std::size_t end = text_.find('"');
      if (end == std::string_view::npos) Refuse("a quoted text is not closed");
      quoted += text_.substr(0, end);
      text_.remove_prefix(end + 1);
      if (!text_.starts_with('"')) return quoted;
      quoted += '"';
      text_.remove_prefix(1);
    }
  }

  std::string_view text_;
};

// --- what it says -------------------------------------------------------------------------------

[[noreturn]] void NotHonoured(const std::string& what) {
  throw Failure("the WKT has " + what + ", which is not honoured here");
}

double NumberAt(const Node& node, std::size_t index) {
  double number = 0;
  if (!ReadNumber(node.TextAt(index), number)) {
    throw Failure("the WKT has no number where " + node.keyword + " needs one");
  }
  return number;
}

const Node& Needed(const Node& parent, std::string_view keyword) {
  const Node* const node = parent.Find(keyword);
  if (node == nullptr) {
    throw Failure("the WKT has no " + std::string(keyword) + " in its " + parent.keyword);
  }
  return *node;
}

bool Near(double a, double b, double tolerance) { return std::abs(a - b) <= tolerance; }

// Datums that go by several names.
std::string DatumName(const std::string& name) {
  constexpr struct {
    std::string_view part;
    const char* datum;
  } kKnown[] = {{"beijing1954", "Beijing 1954"}, {"xian1980", "Xian 1980"},
                {"china2000", "CGCS2000"},       {"cgcs2000", "CGCS2000"},
                {"wgs1984", "WGS 84"},           {"wgs84", "WGS 84"}};
  const std::string folded = Folded(name);
  for (const auto& each : kKnown) {
    if (folded.find(each.part) != std::string::npos) return each.datum;
  }
  return name;
}

void ReadGeographic(const Node& geographic, WktSystem& system) {
  const Node& datum = Needed(geographic, "datum");
  const Node& spheroid = Needed(datum, "spheroid");
  system.datum = DatumName(datum.TextAt(0));
  system.ellipsoid = {NumberAt(spheroid, 1), NumberAt(spheroid, 2)};
  if (!(system.ellipsoid.semi_major_axis > 0) || !(system.ellipsoid.inverse_flattening > 1)) {
    NotHonoured("a spheroid that is no flattened ellipsoid");
  }
  if (const Node* const meridian = geographic.Find("primem");
      meridian != nullptr && NumberAt(*meridian, 1) != 0) {
    NotHonoured("the prime meridian " + meridian->TextAt(0));
  }
  constexpr double kDegree = 0.017453292519943295;
  if (const Node* const unit = geographic.Find("unit");
      unit != nullptr && !Near(NumberAt(*unit, 1), kDegree, 1e-9)) {
    NotHonoured("angles in " + unit->TextAt(0));
  }
}

void ReadParameter(const Node& node, double unit, WktSystem& system) {
  auto& parameters = system.parameters;
  const std::string name = Folded(node.TextAt(0));
  const double value = NumberAt(node, 1);
  if (name == "centralmeridian") {
    parameters.central_meridian = value;
  } else if (name == "latitudeoforigin") {
    parameters.latitude_of_origin = value;
  } else if (name == "falseeasting") {
    parameters.false_easting = value * unit;
  } else if (name == "falsenorthing") {
    parameters.false_northing = value * unit;
  } else if (name == "scalefactor") {
    parameters.scale_factor = value;
  } else {
    NotHonoured("the parameter " + node.TextAt(0));
  }
}

void ReadProjection(const Node& projected, WktSystem& system) {
  const std::string name = Needed(projected, "projection").TextAt(0);
  if (Folded(name) != "transversemercator" && Folded(name) != "gausskruger") {
    NotHonoured("the projection " + name);
  }
  system.unit = NumberAt(Needed(projected, "unit"), 1);
  if (!(system.unit > 0)) NotHonoured("a unit of length that is none");
  bool meridian = false;
  for (const Node& value : projected.values) {
    if (Folded(value.keyword) != "parameter") continue;
    ReadParameter(value, system.unit, system);
    meridian = meridian || Folded(value.TextAt(0)) == "centralmeridian";
  }
  if (!meridian) throw Failure("the WKT has no central meridian");
}

}  // namespace

WktSystem ReadWktSystem(std::string_view text) {
  const Node root = Parser(text).Read();
  const std::string kind = Folded(root.keyword);
  WktSystem system;
  if (kind == "geogcs") {
    ReadGeographic(root, system);
  } else if (kind == "projcs") {
    system.projected = true;
    ReadGeographic(Needed(root, "geogcs"), system);
    ReadProjection(root, system);
  } else {
    throw Failure("the WKT is a " + root.keyword + ", which is not read here");
  }
  return system;
}

}  // namespace qn
