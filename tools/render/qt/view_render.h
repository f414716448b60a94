#pragma once
// The view of the main window for one file, drawn offscreen exactly as the window draws it.
#include <cstdint>
#include <iosfwd>
#include <string>

namespace hlyd {

struct RenderRequest {
    std::string file;
    std::string out;
    int width = 800;  // pixels of the view
    int height = 600;
    std::int32_t first = 1;  // the record the view starts at; -1 the end of the file
};

// Loads settings and keywords as start-up does, the file as the Open command does, and writes the
// view's picture as PNG. One JSON line on `out` tells what was shown. Exit status: 0 done, 2 bad
// file or keyword data, 3 the picture could not be written.
int renderView(const RenderRequest& request, std::ostream& out, std::ostream& err);

}  // namespace hlyd
