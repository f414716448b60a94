#include "platform/qt/printer_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {
constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;
}  // namespace

bool runPrinterDialog(QWidget* parent, PrinterDialogRequest& request) {
    QDialog dialog(parent);
    dialog.setObjectName("PrinterDialog");
    dialog.setWindowTitle("Print Setup");
    auto* form = new QFormLayout(&dialog);
    auto* printers = new QComboBox;
    printers->setObjectName("cboPrinter");
    for (const std::string& name : request.printers) printers->addItem(fromUtf8(name));
    printers->setCurrentIndex(std::max(0, printers->findText(fromUtf8(request.printer))));
    form->addRow("&Name:", printers);
    auto* orientation = new QComboBox;
    orientation->setObjectName("cboOrientation");
    orientation->addItems({"Portrait", "Landscape"});
    orientation->setCurrentIndex(request.Orientation == kLandscape ? 1 : 0);
    form->addRow("&Orientation:", orientation);
    auto* copies = new QSpinBox;
    copies->setObjectName("spnCopies");
    copies->setRange(1, 999);
    copies->setValue(request.Copies);
    form->addRow("&Copies:", copies);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    form->addRow(buttons);
    if (dialog.exec() != QDialog::Accepted || printers->count() == 0) return false;
    request.printer = toUtf8(printers->currentText());
    request.Orientation = orientation->currentIndex() == 1 ? kLandscape : kPortrait;
    request.Copies = static_cast<std::int16_t>(copies->value());
    return true;
}

}  // namespace hlyd
