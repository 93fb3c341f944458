// SPDX-License-Identifier: MIT
// JSON merge patches (RFC 7396), which change nothing in the text but what the patch names.
#ifndef QN_JSON_MERGE_H_
#define QN_JSON_MERGE_H_

#include <quarnfc/ext/json_text.h>

#include <string>

namespace qn {

// The text of the document with the patch applied: members of the patch replace those of the
// document or are added, objects are merged member by member, and null removes a member. Throws
// Failure when a key that the patch names occurs twice.
std::string MergeJson(const quarnfc::ext::JsonText& document, const quarnfc::ext::JsonText& patch);

}  // namespace qn

#endif  // QN_JSON_MERGE_H_
