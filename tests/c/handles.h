// SPDX-License-Identifier: MIT
// Owners of the flat C interface's handles.
#ifndef QUARNFC_TESTS_C_HANDLES_H_
#define QUARNFC_TESTS_C_HANDLES_H_

#include <quarnfc/c/csv_text.h>
#include <quarnfc/c/geodesy.h>
#include <quarnfc/c/http_call.h>
#include <quarnfc/c/json.h>
#include <quarnfc/c/json_text.h>
#include <quarnfc/c/transverse_mercator.h>

#include <memory>

namespace c_results {

struct Free {
  void operator()(QncCsvText* csv) const { qncCsvTextClose(csv); }
  void operator()(QncGeographic* system) const { qncGeographicFree(system); }
  void operator()(QncHttpCall* call) const { qncHttpCallFree(call); }
  void operator()(QncHttpResponse* response) const { qncHttpFree(response); }
  void operator()(QncJson* value) const { qncJsonFree(value); }
  void operator()(QncJsonText* document) const { qncJsonTextFree(document); }
  void operator()(QncProjected* system) const { qncProjectedFree(system); }
  void operator()(QncTransverseMercator* system) const { qncTransverseMercatorFree(system); }
};
using CsvText = std::unique_ptr<QncCsvText, Free>;
using Document = std::unique_ptr<QncJson, Free>;
using Geographic = std::unique_ptr<QncGeographic, Free>;
using HttpCall = std::unique_ptr<QncHttpCall, Free>;
using HttpAnswer = std::unique_ptr<QncHttpResponse, Free>;
using JsonText = std::unique_ptr<QncJsonText, Free>;
using Projected = std::unique_ptr<QncProjected, Free>;
using Transverse = std::unique_ptr<QncTransverseMercator, Free>;

}  // namespace c_results

#endif  // QUARNFC_TESTS_C_HANDLES_H_
