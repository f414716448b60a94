#pragma once
// frmErrorInfo, the dialog that shows the report of an unexpected failure: its texts and what its
// buttons do. The window shows it; the report itself is composed in error_report.
#include <string>
#include <utility>
#include <vector>

namespace hlyd {

struct ErrorInfoModel {
    explicit ErrorInfoModel(std::string report) : txtError(std::move(report)) {}

    std::string txtError;   // the report, read-only
    std::string lblStatus;  // what the last button did

    // The three lines above the report: whom to send it to, and how.
    std::vector<std::string> fixedLines() const;
    // "Email to " and the support address.
    std::string cmdEMailCaption() const;

    // Copy to Clipboard.
    void cmdAll_Click();
    // A mail to support with the report as its body, in the desktop's mail program.
    void cmdEMail_Click();
};

}  // namespace hlyd
