#include "dialogs/about_box.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "base/app_info.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

// Wide enough for the sentence to wrap into a few even lines, not one long one.
constexpr int kTextColumns = 48;

QLabel* label(const QString& text, const char* name) {
    auto* shown = new QLabel(text);
    shown->setObjectName(name);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return shown;
}

}  // namespace

const char* aboutSentence() {
    return "Halyard lays out the source of Visual Basic 3 to 6 files, projects and groups, indented and "
           "with structure lines, on screen, on paper and as HTML, and never changes it.";
}

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
    const cAppInfo& app = theAppInfo();
    setObjectName("frmAbout");
    setWindowTitle("About " + fromUtf8(app.Title));
    auto* box = new QVBoxLayout(this);
    // The box takes the size its text asks for, and cannot be dragged to cut it.
    box->setSizeConstraint(QLayout::SetFixedSize);
    QLabel* name = label(fromUtf8(app.Title), "lblTitle");
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.6);
    name->setFont(large);
    box->addWidget(name);
    box->addWidget(label(fromUtf8("Version " + app.Version + " (" + app.VersionDate + ")"), "lblVersion"));
    QLabel* sentence = label(fromUtf8(aboutSentence()), "lblDescription");
    sentence->setWordWrap(true);
    sentence->setFixedWidth(sentence->fontMetrics().averageCharWidth() * kTextColumns);
    box->addWidget(sentence);
    std::string owner = app.UserName + (app.UserCompany.empty() ? "" : "\n" + app.UserCompany);
    if (!app.UserName.empty() || !app.UserCompany.empty()) box->addWidget(label(fromUtf8(owner), "lblUser"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    box->addWidget(buttons);
}

}  // namespace hlyd
