#pragma once
// The places of a printed listing a reader of its file can go to, and the links that lead there:
// each file's first page and each procedure's declaration are named (and make the outline), and
// every contents entry links to what it lists. A printer that keeps none of this ignores it.
#include <cstdint>
#include <string>

namespace hlyd {

class Printer;

// The names are made from the file's place in the file table and the procedure's in its list.
std::string fileDestination(int file);
std::string procedureDestination(int file, int entry);

// The page just begun starts a document of the kind given: a file's listing (its code or a
// project's file) is named at the top of the page, under the file's name.
void markDocumentStart(Printer& printer, std::int16_t kind);

// The record about to be printed holds the declaration of entry `entry` of the current file's
// procedures (-1: of none). Its place is named when its first line is placed.
void awaitDeclaration(int entry);
void placeAwaitedDeclaration(Printer& printer, float lineTop);
// The place of the last declaration awaited: a table of contents entry made for it links there.
const std::string& lastDeclaration();

// The lines from `top` to `bottom` across the printable width link to `name`.
void linkLines(Printer& printer, float top, float bottom, const std::string& name);

}  // namespace hlyd
