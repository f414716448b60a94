#pragma once
// Saving the current file as one HTML document: contents with links, an anchor at each
// procedure, the tokens in their elements' styles. Lengths are characters here, not twips.
#include <cstdint>
#include <string>

namespace hlyd {

void HTMLEmitAFile();

// The menu command: the status bar tells what is generated and when it is done.
void HlydMNSaveAsHTML();

namespace hlydHTML {
void EmitCodeRecord(std::int32_t record, std::int32_t firstToken, std::int16_t& procIndex);
void EmitProjectRecord(const std::string& text);
}  // namespace hlydHTML

}  // namespace hlyd
