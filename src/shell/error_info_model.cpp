#include "shell/error_info_model.h"

#include "base/app_info.h"
#include "base/mail_link.h"
#include "platform/ui.h"

namespace hlyd {

std::vector<std::string> ErrorInfoModel::fixedLines() const {
    return {"        Please forward this information to " + theAppInfo().SupportParty,
            "        The 'Copy to Clipboard' button will copy the text to the ",
            "        clipboard for pasting into an E-Mail Message"};
}

std::string ErrorInfoModel::cmdEMailCaption() const { return "Email to " + theAppInfo().SupportEndpoint; }

void ErrorInfoModel::cmdAll_Click() {
    theUi().setClipboardText(txtError);
    lblStatus = "Message copied to clipboard";
}

void ErrorInfoModel::cmdEMail_Click() {
    const cAppInfo& app = theAppInfo();
    JumpToURL("mailto:" + app.SupportEndpoint, "Error in " + app.Title, txtError);
}

}  // namespace hlyd
