#include "platform/qt/printer_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPrinterInfo>
#include <QSpinBox>

#include "platform/printer.h"
#include "platform/qt/classic_paper.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {
constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;
constexpr std::int16_t kOneSide = 1;

// The papers a printer takes, as classic codes: the built-in PDF printer takes every paper we know.
std::vector<std::int32_t> papersOf(const QString& printer) {
    std::vector<std::int32_t> known = classicPaperCodes();
    if (printer == kPdfPrinterName) return known;
    std::vector<std::int32_t> papers;
    QList<QPageSize> sizes = QPrinterInfo::printerInfo(printer).supportedPageSizes();
    for (std::int32_t code : known)
        for (const QPageSize& size : sizes)
            if (size.id() == *classicPaper(code)) {
                papers.push_back(code);
                break;
            }
    return papers;
}

// Whether the printer prints on both sides; a PDF has no sides to turn.
bool printsBothSides(const QString& printer) {
    if (printer == kPdfPrinterName) return false;
    QList<QPrinter::DuplexMode> modes = QPrinterInfo::printerInfo(printer).supportedDuplexModes();
    return modes.contains(QPrinter::DuplexLongSide) || modes.contains(QPrinter::DuplexShortSide) ||
           modes.contains(QPrinter::DuplexAuto);
}

// Paper and duplex rows that follow the printer chosen: shown only where the printer has them.
class JobRows {
public:
    JobRows(QFormLayout* form, const PrinterDialogRequest& request) : form_(form) {
        paper_ = new QComboBox;
        paper_->setObjectName("cboPaperSize");
        form->addRow("&Paper:", paper_);
        duplex_ = new QComboBox;
        duplex_->setObjectName("cboDuplex");
        duplex_->addItem("One side", 1);
        duplex_->addItem("Both sides, long edge", 2);
        duplex_->addItem("Both sides, short edge", 3);
        duplex_->setCurrentIndex(std::max(0, duplex_->findData(request.Duplex)));
        form->addRow("&Duplex:", duplex_);
        wantedPaper_ = request.PaperSize;
    }
    void showPrinter(const QString& printer) {
        if (paper_->count() > 0) wantedPaper_ = paper_->currentData().toInt();
        paper_->clear();
        for (std::int32_t code : papersOf(printer)) paper_->addItem(QPageSize(*classicPaper(code)).name(), code);
        paper_->setCurrentIndex(std::max(0, paper_->findData(wantedPaper_)));
        form_->setRowVisible(paper_, paper_->count() > 0);
        form_->setRowVisible(duplex_, printsBothSides(printer));
    }
    void take(PrinterDialogRequest& request) const {
        if (paper_->count() > 0) request.PaperSize = static_cast<std::int16_t>(paper_->currentData().toInt());
        request.Duplex =
                form_->isRowVisible(duplex_) ? static_cast<std::int16_t>(duplex_->currentData().toInt()) : kOneSide;
    }

private:
    QFormLayout* form_;
    QComboBox* paper_ = nullptr;
    QComboBox* duplex_ = nullptr;
    int wantedPaper_ = 1;
};

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
    JobRows job(form, request);
    job.showPrinter(printers->currentText());
    QObject::connect(printers, &QComboBox::currentTextChanged, &dialog,
                     [&job](const QString& name) { job.showPrinter(name); });
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
    job.take(request);
    return true;
}

}  // namespace hlyd
