#pragma once
// The mail link of the error report: the address with its subject and body, handed to the desktop.
#include <string>

namespace hlyd {

// The body as the mail link carries it. Only the characters that mail programs have been seen to
// stumble on are replaced; line breaks, "%" and "&" pass as they are, so that the report arrives
// with its lines.
std::string encodeMailBody(const std::string& body);

// Address, then "?subject=" and the subject as it is, then "&body=" and the encoded body; an
// empty subject or body adds nothing.
std::string mailLink(const std::string& address, const std::string& subject, const std::string& body);

// Hands the link to the desktop. A desktop that cannot take it is no failure: the report can
// still be copied from the dialog.
void JumpToURL(const std::string& address, const std::string& subject, const std::string& body);

}  // namespace hlyd
