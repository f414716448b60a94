#pragma once
// How the text of a contents entry falls into lines of a given width, measured by the printer.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace hlyd {

using MeasureText = std::function<float(const std::string&)>;

// The text broken at blanks into lines no wider than `room`: the first line begins with
// `firstIndent` blanks, the others with `nextIndent`. A word wider than a line is cut where the
// line ends. Blanks at a break belong to neither line, so every wrapped line starts at one indent.
std::vector<std::string> wrapAtBlanks(const std::string& text, std::size_t firstIndent, std::size_t nextIndent,
                                      float room, const MeasureText& width);

// A path too wide for `room` keeps its start and its file name, with "..." between; a file name
// too wide by itself loses its middle instead.
std::string shortenPathToWidth(const std::string& path, float room, const MeasureText& width);

}  // namespace hlyd
