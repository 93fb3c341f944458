// SPDX-License-Identifier: MIT
// JSON text, which is in the process ANSI code page, as UTF-8.
//
// Half a character - a lead byte that the byte behind it completes to none - would take that byte
// with it, the quote at the end of a string for one. It becomes a question mark by itself; only an
// ASCII byte is spared, because only such a byte means anything to JSON.
//
// A long text in code page 936 is converted piece by piece, its ASCII bytes by copying them.
// Nothing in a piece depends on what stands around it: strings and keys lie in one piece with their
// quotes. Short texts, whose UTF-16 form lies in a block of a pool, are joined and converted as a
// whole, and so is any text in code pages whose characters may have another form.
#ifndef QUARNFC_JSON_UTF8_TEXT_H_
#define QUARNFC_JSON_UTF8_TEXT_H_

#include "core/memory/memory.h"
#include "json/piece_list.h"

namespace quarnfc::json {

// Throws std::bad_alloc when memory runs out or the result exceeds 2 GiB.
OwnedText ToUtf8(PieceList text);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_UTF8_TEXT_H_
