#include "dialogs/form_parts.h"

#include <QPushButton>

#include "dialogs/help_key.h"
#include "shell/help_commands.h"

namespace hlyd {

QHBoxLayout* okCancelHelpRow(QDialog* form, const std::function<void()>& ok, const std::string& helpPage) {
    setHelpPage(form, helpPage);
    auto* row = new QHBoxLayout;
    auto* okButton = named("cmdOK", new QPushButton("OK"));
    okButton->setDefault(true);
    QObject::connect(okButton, &QPushButton::clicked, form, ok);
    auto* cancel = named("cmdCancel", new QPushButton("Cancel"));
    // The button leaves at once; only Escape and the close box may ask about unsaved changes.
    QObject::connect(cancel, &QPushButton::clicked, form, [form] { form->QDialog::reject(); });
    auto* help = named("cmdHelp", new QPushButton("&Help"));
    help->setEnabled(helpAvailable());
    QObject::connect(help, &QPushButton::clicked, form, [helpPage] { showHelpPage(helpPage); });
    row->addStretch();
    for (QPushButton* button : {okButton, cancel, help}) row->addWidget(button);
    return row;
}

}  // namespace hlyd
