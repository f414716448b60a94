#pragma once
// The window's File / Save as HTML Site: the open file, project or group as linked pages in the
// folder the user chooses.
namespace hlyd {

void HlydMNSaveAsHTMLSite();

}  // namespace hlyd
