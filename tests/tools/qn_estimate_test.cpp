// SPDX-License-Identifier: MIT
// qn geo estimate, and what is generated from the commands' help.
#include <quarnfc/ext/datum_shift.h>
#include <quarnfc/ext/json_text.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "qn/exit_code.h"
#include "qn/reference.h"
#include "tests/support/temp_file.h"
#include "tests/tools/run_qn.h"

namespace {

namespace ext = quarnfc::ext;
using quarnfc_test::TempFile;

qn_test::FullOutcome RunAny(const std::vector<std::string>& arguments) {
  return qn_test::RunQn(qn::Commands(), arguments);
}

double NumberIn(const ext::JsonText& json, const char* pointer) {
  double number = 0;
  const auto node = json.Root().Find(pointer);
  EXPECT_TRUE(node && node->Number(number)) << pointer << " in " << json.Text();
  return number;
}

ext::JsonText Json(const qn_test::FullOutcome& run) {
  ext::JsonText json;
  EXPECT_TRUE(json.Parse(run.output)) << run.output << run.errors;
  return json;
}

std::string Line(const char* format, double a, double b, double c, double d) {
  char line[256];
  std::snprintf(line, sizeof(line), format, a, b, c, d);
  return line;
}

TEST(QnGeoEstimate, ASimilarityIsFoundFromPointsOfThePlane) {
  const ext::PlaneSimilarity similarity{100, -200, 1.00002, 0.0003};
  std::string text = "# points\nname,e,n,E,N\n\n";
  for (const ext::EastNorth& at :
       {ext::EastNorth{0, 0}, {1000, 0}, {0, 2000}, {1500, 1500}, {-700, 300}}) {
    const ext::EastNorth to = Apply(similarity, at);
    text += Line("P1,%.4f,%.4f,%.9f,%.9f\r\n", at.east, at.north, to.east, to.north);
  }
  const TempFile file(text);
  const ext::JsonText json = Json(RunAny({"geo", "estimate", "--json", file.path()}));
  EXPECT_EQ(json.Root().Find("/method")->String(), "similarity");
  EXPECT_NEAR(NumberIn(json, "/parameters/east"), 100, 1e-6);
  EXPECT_NEAR(NumberIn(json, "/parameters/north"), -200, 1e-6);
  EXPECT_NEAR(NumberIn(json, "/parameters/a"), 1.00002, 1e-10);
  EXPECT_NEAR(NumberIn(json, "/parameters/b"), 0.0003, 1e-10);
  EXPECT_LT(NumberIn(json, "/standard_deviation"), 1e-6);
  EXPECT_EQ(json.Root().Find("/residuals")->Count(), 5u);
  EXPECT_EQ(json.Root().Find("/residuals/0/name")->String(), "P1");
  const qn_test::FullOutcome shown = RunAny({"geo", "estimate", file.path()});
  EXPECT_EQ(shown.code, qn::kSuccess);
  EXPECT_NE(shown.output.find("similarity from 5 points"), std::string::npos) << shown.output;
  EXPECT_NE(shown.output.find("standard deviation of a coordinate 0.0000 m"), std::string::npos);
}

TEST(QnGeoEstimate, NorthFirstTurnsTheColumns) {
  const TempFile file("0 0 10 20\n0 1 10 21\n2 0 12 20\n");
  const ext::JsonText json =
      Json(RunAny({"geo", "estimate", "--order", "ne", "--json", file.path()}));
  EXPECT_NEAR(NumberIn(json, "/parameters/east"), 20, 1e-9);
  EXPECT_NEAR(NumberIn(json, "/parameters/north"), 10, 1e-9);
}

// What is found, given to qn geo convert, shifts the first system's points to
// the second's.
TEST(QnGeoEstimate, SevenParametersAreFoundAndFitTheConversion) {
  const ext::Helmert7 shift{
      {12.5, -107.1, -62.3}, {0.5, 1.2, -0.9}, 2.3, ext::RotationConvention::kCoordinateFrame};
  std::string text;
  for (const ext::LonLatHeight& at : {ext::LonLatHeight{114.0, 30.0, 20.0},
                                      {115.0, 30.2, 100.0},
                                      {114.5, 31.0, 55.0},
                                      {113.6, 30.7, 12.0}}) {
    const ext::LonLatHeight to = ShiftDatum(ext::kKrassowsky1940, at, shift, ext::kCgcs2000);
    char line[256];
    std::snprintf(line, sizeof(line), "%.12f %.12f %.6f %.12f %.12f %.6f\n", at.lon, at.lat,
                  at.height, to.lon, to.lat, to.height);
    text += line;
  }
  const TempFile file(text);
  const ext::JsonText json = Json(RunAny(
      {"geo", "estimate", "--json", "--from", "beijing54", "--to", "cgcs2000", file.path()}));
  EXPECT_EQ(json.Root().Find("/convention")->String(), "coordinate-frame");
  EXPECT_NEAR(NumberIn(json, "/parameters/dx"), 12.5, 0.01);
  EXPECT_NEAR(NumberIn(json, "/parameters/rz"), -0.9, 0.001);
  EXPECT_NEAR(NumberIn(json, "/parameters/ppm"), 2.3, 0.001);
  const std::string shown =
      RunAny({"geo", "estimate", "--from", "beijing54", "--to", "cgcs2000", file.path()}).output;
  const std::size_t list = shown.find("--shift ") + 8;
  const std::string found = shown.substr(list, shown.find(' ', list) - list);
  const ext::LonLatHeight expected =
      ShiftDatum(ext::kKrassowsky1940, {114.3, 30.5, 0}, shift, ext::kCgcs2000);
  const std::string converted =
      RunAny({"geo", "convert", "--from", "beijing54", "--to", "cgcs2000", "--shift", found,
              "--rotation", "coordinate-frame", "114.3,30.5"})
          .output;
  EXPECT_NEAR(std::stod(converted), expected.lon, 1e-8) << converted;
  EXPECT_NEAR(std::stod(converted.substr(converted.find(',') + 1)), expected.lat, 1e-8);
}

TEST(QnGeoEstimate, WhatDeterminesNothingIsRefused) {
  const struct {
    const char* text;
    const char* part;
    int code;
  } cases[] = {
      {"", "do not determine", qn::kFailure},
      {"1 2 3 4\n", "do not determine", qn::kFailure},
      {"1 2 3 4\n1 2 3 4\n", "do not determine", qn::kFailure},
      {"1 2 3\n", ":1: no point in two systems", qn::kFailure},
      {"1 2 3 4\n1 2 3 x\n", ":2: no point in two systems", qn::kFailure},
      {"1 2 3 4\n1 2 3 4 5 6\n", ":2: the points in front", qn::kFailure},
      {"1 2 3 nan\n", ":1: no point in two systems", qn::kFailure},
  };
  for (const auto& each : cases) {
    const TempFile file(each.text);
    const qn_test::FullOutcome run = RunAny({"geo", "estimate", file.path()});
    EXPECT_EQ(run.code, each.code) << each.text;
    EXPECT_NE(run.errors.find(each.part), std::string::npos) << run.errors;
    EXPECT_EQ(run.output, "") << each.text;
  }
  const TempFile plane("0 0 1 1\n1 0 2 1\n");
  EXPECT_EQ(RunAny({"geo", "estimate", "--from", "4214", plane.path()}).code, qn::kUsageError);
  EXPECT_EQ(RunAny({"geo", "estimate", "--rotation", "left", plane.path()}).code, qn::kUsageError);
}

// --- generated from the help --------------------------------------------------------------------

TEST(QnReference, OptionsOfAUsageAreNamedOnceEach) {
  EXPECT_EQ(qn::OptionsIn("usage: qn x [--a-b] -- -c --d1=V\n --a-b again, --- no"), "--a-b --d1");
  EXPECT_EQ(qn::OptionsIn("none"), "");
}

constexpr qn::Command kDocumentedInner[] = {
    {"run", "Runs it", "usage: qn group run [--fast]\n.no request \\here\n", nullptr}};
constexpr qn::Command kDocumented[] = {
    {"group", "Several", "usage: qn group COMMAND\n", nullptr, kDocumentedInner}};

TEST(QnReference, TheManualPageHoldsEveryUsageAsItIs) {
  const std::string page = qn::ManualPage(kDocumented, "usage: qn\n");
  EXPECT_NE(page.find(".SS qn group run\nRuns it.\n.PP\n.nf\nusage: qn group "
                      "run [\\-\\-fast]\n"
                      "\\&.no request \\ehere\n.fi\n"),
            std::string::npos)
      << page;
}

TEST(QnReference, HelpWritesThePageAndTheCompletion) {
  const qn_test::FullOutcome page = RunAny({"help", "--man"});
  EXPECT_EQ(page.code, qn::kSuccess);
  EXPECT_NE(page.output.find(".SS qn geo estimate\n"), std::string::npos);
  const qn_test::FullOutcome completion = RunAny({"help", "--bash-completion"});
  EXPECT_EQ(completion.code, qn::kSuccess);
  EXPECT_NE(completion.output.find("\" geo estimate\") words=\""), std::string::npos);
}

}  // namespace
