#pragma once
// A source file on paper: record after record in columns, procedures starting where the options
// say, lines numbered, long records wrapped, connector lines carried over breaks, and the page of
// each procedure noted for the contents.
#include <cstdint>
#include <string>

#include "printing/print_state.h"

namespace hlyd {

// What a record is printed for: the listing, a procedure table, a project's contents.
constexpr int kEmitCode = 1;
constexpr int kEmitProcContents = 2;
constexpr int kEmitProjectContents = 3;

void EmitCodeFile(wPos& pos);
void EmitCodeFileSelectedProcs(wPos& pos);
// The height a declaration takes in a contents listing laid out from `pos`, and the X at which its
// text ends, without printing it: an entry that would not fit goes to the next page whole.
float MeasureContentsRecord(std::int32_t record, const wPos& pos, float& endX);
// Prints one record at the position; returns the pieces it was wrapped into.
std::int32_t EmitCodeRecord(std::int32_t record, wPos& pos, std::int32_t& contentsPages, int mode);

}  // namespace hlyd
