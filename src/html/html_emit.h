#pragma once
// Saving the current file as one HTML document: contents with links, an anchor at each
// procedure, the tokens in their elements' styles. Lengths are characters here, not twips.
#include <cstdint>
#include <functional>
#include <string>

namespace hlyd {

// Writes the current file's document to the place the user chooses. `targetChosen` hears that
// place before the work begins; false when the user cancelled and nothing was written.
bool HTMLEmitAFile(const std::function<void(const std::string& target)>& targetChosen = {});

// The menu command: the status bar tells what is generated and when it is done.
void HlydMNSaveAsHTML();

namespace hlydHTML {
void EmitProjectRecord(const std::string& text);
}  // namespace hlydHTML

}  // namespace hlyd
