#include "dialogs/print_dialogs.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <map>

#include "dialogs/help_key.h"
#include "dialogs/form_parts.h"
#include "platform/qt/qt_text.h"
#include "shell/print_dialog.h"
#include "shell/print_options.h"
#include "printing/print_request.h"
#include "printing/print_status.h"
#include "printing/printer_start.h"
#include "models/select_proc_model.h"
#include "shell/help_commands.h"

namespace hlyd {

namespace {

QString captionOf(const std::vector<std::pair<std::string, std::string>>& captions, const std::string& name) {
    for (const auto& [control, caption] : captions)
        if (control == name) return fromUtf8(caption);
    return {};
}

QString printCaption(const std::string& name) { return captionOf(printDialogCaptions(), name); }

// HLYDPrint: the widgets mirror the model; every click stores them, runs the model's handler and
// shows the model again.
class PrintForm : public QDialog {
public:
    PrintForm(QWidget* parent, PrintDialogModel& m) : QDialog(parent), m_(m) {
        setObjectName("HLYDPrint");
        setWindowTitle(printCaption("HLYDPrint"));
        auto* grid = new QGridLayout(this);
        grid->addWidget(buildView(), 0, 0);
        grid->addWidget(buildPrintWhat(), 0, 1);
        grid->addWidget(buildHeadingAndPages(), 1, 0, 1, 2);
        grid->addLayout(buildButtons(), 2, 0, 1, 2);
        load();
    }

private:
    QCheckBox* check(const std::string& name) {
        auto* box = named(name, new QCheckBox(printCaption(name)));
        connect(box, &QCheckBox::clicked, this, [this] { store(); });
        checks_[name] = box;
        return box;
    }
    QLineEdit* digits(const std::string& name) {
        auto* field = named(name, new QLineEdit);
        field->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), field));
        connect(field, &QLineEdit::textEdited, this, [this] { store(); });
        fields_[name] = field;
        return field;
    }
    QWidget* buildView() {
        auto* frame = named("fraView", new QGroupBox(printCaption("fraView")));
        auto* box = new QVBoxLayout(frame);
        for (int i = 0; i < 4; ++i) {
            views_[i] =
                    named("optView" + std::to_string(i), new QRadioButton(printCaption("optView" + std::to_string(i))));
            connect(views_[i], &QRadioButton::clicked, this, [this] { store(); });
            box->addWidget(views_[i]);
        }
        for (const char* name : {"chkSkipAttributes", "chkTOC", "chkXref", "chkProcContents"})
            box->addWidget(check(name));
        auto* start = new QLabel(printCaption("lblPageNumberStart"));
        QLineEdit* field = digits("txtPageNumberStart");
        start->setBuddy(field);
        box->addWidget(start);
        box->addWidget(field);
        return frame;
    }
    QWidget* buildPrintWhat() {
        auto* frame = named("fraPrintWhat", new QGroupBox(printCaption("fraPrintWhat")));
        auto* box = new QGridLayout(frame);
        box->addWidget(check("chkCurrent"), 0, 0);
        connect(checks_["chkCurrent"], &QCheckBox::clicked, this, [this] { act([this] { chkCurrent_Click(m_); }); });
        for (int i = 0; i < 2; ++i) {
            std::string index = std::to_string(i);
            box->addWidget(check("chkAll" + index), 1 + i, 0);
            connect(checks_["chkAll" + index], &QCheckBox::clicked, this,
                    [this, i] { act([this, i] { chkAll_Click(m_, i); }); });
            selected_[i] = named("optSelectedProcedures" + index,
                                 new QRadioButton(printCaption("optSelectedProcedures" + index)));
            selected_[i]->setAutoExclusive(false);
            connect(selected_[i], &QRadioButton::clicked, this,
                    [this, i] { act([this, i] { optSelectedProcedures_Click(m_, i); }); });
            box->addWidget(selected_[i], 3 + i, 0);
            auto* select = selects_[i] = named("cmdSelect" + index, new QPushButton("..."));
            connect(select, &QPushButton::clicked, this,
                    [this, i] { act([this, i] { HlydHLYDPrintSelectProc(m_, i == kSelectFiles); }); });
            box->addWidget(select, 3 + i, 1);
        }
        lblProcs_ = named("lblProcs", new QLabel);
        box->addWidget(lblProcs_, 5, 0, 1, 2);
        for (const char* name : {"chkPrintContinuous", "chkDontUpdate", "chkDontShow"})
            box->addWidget(check(name), box->rowCount(), 0);
        return frame;
    }
    QWidget* buildHeadingAndPages() {
        auto* panel = new QWidget;
        auto* box = new QGridLayout(panel);
        auto* heading = named("fraHeading", new QGroupBox(printCaption("fraHeading")));
        auto* headingBox = new QVBoxLayout(heading);
        txtHeading_ = named("txtHeading", new QLineEdit);
        connect(txtHeading_, &QLineEdit::textEdited, this, [this] { store(); });
        headingBox->addWidget(txtHeading_);
        box->addWidget(heading, 0, 0, 1, 4);
        pages_ = named("optPageRange", new QCheckBox(printCaption("optPageRange")));
        connect(pages_, &QCheckBox::clicked, this, [this] { act([this] { optPageRange_Click(m_); }); });
        box->addWidget(pages_, 1, 0);
        box->addWidget(digits("txtPageRange0"), 1, 1);
        box->addWidget(digits("txtPageRange1"), 1, 2);
        lblPrinter_ = named("lblPrinter", new QLabel);
        box->addWidget(lblPrinter_, 2, 0, 1, 2);
        auto* printer = named("cmdSelectPrinter", new QPushButton(printCaption("cmdSelectPrinter")));
        connect(printer, &QPushButton::clicked, this, [this] {
            HlydPAProcessSetupRequest(true);
            store();
            PrintDialogModel fresh;
            fillPrintDialog(fresh);
            m_.lblPrinter = fresh.lblPrinter;
            load();
        });
        box->addWidget(printer, 2, 2);
        auto* options = named("cmdOptions", new QPushButton(printCaption("cmdOptions")));
        connect(options, &QPushButton::clicked, this, [] { HlydPOShowPrintOptions(); });
        box->addWidget(options, 2, 3);
        return panel;
    }
    QHBoxLayout* buildButtons() {
        return okCancelHelpRow(
                this, [this] { okClicked(); }, "printing.html");
    }
    void okClicked() {
        store();
        if (cmdOK_Click(m_)) {
            accept();
            return;
        }
        load();
        if (QLineEdit* field = fields_.count(m_.focus) ? fields_[m_.focus] : nullptr) {
            field->setFocus();
            field->selectAll();
        }
    }
    template <class F>
    void act(F handler) {
        store();
        handler();
        load();
    }
    void store() {
        for (int i = 0; i < 4; ++i)
            if (views_[i]->isChecked()) m_.optView = i;
        m_.chkSkipAttributes = checks_["chkSkipAttributes"]->isChecked();
        m_.chkTOC = checks_["chkTOC"]->isChecked();
        m_.chkXref = checks_["chkXref"]->isChecked();
        m_.chkProcContents = checks_["chkProcContents"]->isChecked();
        m_.chkCurrent = checks_["chkCurrent"]->isChecked();
        for (int i = 0; i < 2; ++i) {
            m_.chkAll[i] = checks_["chkAll" + std::to_string(i)]->isChecked();
            m_.optSelectedProcedures[i] = selected_[i]->isChecked();
            m_.txtPageRange[i] = toCp1252(fields_["txtPageRange" + std::to_string(i)]->text());
        }
        m_.chkPrintContinuous = checks_["chkPrintContinuous"]->isChecked();
        m_.chkDontUpdate = checks_["chkDontUpdate"]->isChecked();
        m_.chkDontShow = checks_["chkDontShow"]->isChecked();
        m_.optPageRange = pages_->isChecked();
        m_.txtPageNumberStart = toCp1252(fields_["txtPageNumberStart"]->text());
        m_.txtHeading = toCp1252(txtHeading_->text());
    }
    void load() {
        views_[m_.optView]->setChecked(true);
        checks_["chkSkipAttributes"]->setChecked(m_.chkSkipAttributes);
        checks_["chkTOC"]->setChecked(m_.chkTOC);
        checks_["chkXref"]->setChecked(m_.chkXref);
        checks_["chkProcContents"]->setChecked(m_.chkProcContents);
        checks_["chkCurrent"]->setChecked(m_.chkCurrent);
        for (int i = 0; i < 2; ++i) {
            checks_["chkAll" + std::to_string(i)]->setChecked(m_.chkAll[i]);
            selected_[i]->setChecked(m_.optSelectedProcedures[i]);
            fields_["txtPageRange" + std::to_string(i)]->setText(fromCp1252(m_.txtPageRange[i]));
            fields_["txtPageRange" + std::to_string(i)]->setEnabled(m_.txtPageRangeEnabled);
        }
        checks_["chkPrintContinuous"]->setChecked(m_.chkPrintContinuous);
        checks_["chkDontUpdate"]->setChecked(m_.chkDontUpdate);
        checks_["chkDontShow"]->setChecked(m_.chkDontShow);
        pages_->setChecked(m_.optPageRange);
        fields_["txtPageNumberStart"]->setText(fromCp1252(m_.txtPageNumberStart));
        txtHeading_->setText(fromCp1252(m_.txtHeading));
        lblPrinter_->setText(fromUtf8(m_.lblPrinter));
        lblProcs_->setText(fromUtf8(m_.lblProcs));
        // A project listing has no procedures to pick from.
        selected_[kSelectProcedures]->setEnabled(!m_.projectShown);
        selects_[kSelectProcedures]->setEnabled(!m_.projectShown);
    }

    PrintDialogModel& m_;
    QRadioButton* views_[4] = {};
    QRadioButton* selected_[2] = {};
    QPushButton* selects_[2] = {};
    QCheckBox* pages_ = nullptr;
    QLineEdit* txtHeading_ = nullptr;
    QLabel* lblPrinter_ = nullptr;
    QLabel* lblProcs_ = nullptr;
    std::map<std::string, QCheckBox*> checks_;
    std::map<std::string, QLineEdit*> fields_;
};

}  // namespace

// HLYDSelectProc: a list that keeps filling the form, and All, None, OK, Cancel.
bool showSelectForm(QWidget* parent, SelectProcModel& m) {
    QDialog form(parent);
    form.setObjectName("HLYDSelectProc");
    form.setWindowTitle(fromUtf8(m.Caption));
    auto* box = new QVBoxLayout(&form);
    box->addWidget(new QLabel(fromUtf8(m.lblProc)));
    auto* list = new QListWidget;
    list->setObjectName("lstProc");
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    for (std::size_t i = 0; i < m.lstProc.size(); ++i) {
        list->addItem(fromCp1252(m.lstProc[i]));
        list->item(static_cast<int>(i))->setSelected(m.selected[i]);
    }
    box->addWidget(list, 1);
    auto* row = new QHBoxLayout;
    std::map<std::string, QPushButton*> buttons;
    for (const auto& [name, caption] : selectProcCaptions()) {
        buttons[name] = new QPushButton(fromUtf8(caption));
        buttons[name]->setObjectName(fromUtf8(name));
        row->addWidget(buttons[name]);
    }
    box->addLayout(row);
    buttons["cmdHelp"]->setEnabled(helpAvailable());
    QObject::connect(buttons["cmdHelp"], &QPushButton::clicked, [] { showHelpPage("printing.html"); });
    setHelpPage(&form, "printing.html");
    QObject::connect(buttons["cmdAll"], &QPushButton::clicked, list, &QListWidget::selectAll);
    QObject::connect(buttons["cmdNone"], &QPushButton::clicked, list, &QListWidget::clearSelection);
    QObject::connect(buttons["cmdOK"], &QPushButton::clicked, &form, &QDialog::accept);
    QObject::connect(buttons["cmdCancel"], &QPushButton::clicked, &form, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &form, [&form](QListWidgetItem* item) {
        item->setSelected(true);
        form.accept();
    });
    if (form.exec() != QDialog::Accepted) return false;
    for (int i = 0; i < list->count(); ++i) m.selected[static_cast<std::size_t>(i)] = list->item(i)->isSelected();
    return true;
}

namespace {

// HLYDPrintStatus: closing it by the window's menu is a Cancel.
class StatusForm : public QDialog {
public:
    explicit StatusForm(QWidget* parent) : QDialog(parent) {
        setObjectName("HLYDPrintStatus");
        setHelpPage(this, "printing.html");
        setWindowTitle(fromUtf8(printStatusDialog().Caption));
        auto* box = new QVBoxLayout(this);
        page_ = new QLabel;
        page_->setObjectName("lblPage");
        // A fixed width: a long path would otherwise stretch the dialog past the screen's edge.
        page_->setFixedWidth(page_->fontMetrics().averageCharWidth() * kStatusColumns);
        box->addWidget(page_);
        cancel_ = new QPushButton(fromUtf8(printStatusDialog().cmdCancel));
        cancel_->setObjectName("cmdCancel");
        connect(cancel_, &QPushButton::clicked, this, [this] {
            cmdCancel_Click();
            showModel();
        });
        // The main window is shut while pages are made, so the stop that keeps them is offered here,
        // beside the Cancel that drops them.
        auto* stop = new QPushButton(fromUtf8(printStatusDialog().cmdStop));
        stop->setObjectName("cmdStop");
        connect(stop, &QPushButton::clicked, this, [this] {
            stopPrinting();
            showModel();
        });
        auto* buttons = new QHBoxLayout;
        buttons->addStretch();
        buttons->addWidget(stop);
        buttons->addWidget(cancel_);
        buttons->addStretch();
        box->addLayout(buttons);
    }
    void showModel() {
        page_->setText(elidedLines(fromCp1252(printStatusDialog().lblPage)));
        cancel_->setText(fromUtf8(printStatusDialog().cmdCancel));
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        if (printStatusDialog().visible) {
            printStatusClosedByUser();
            showModel();
            event->ignore();
            return;
        }
        QDialog::closeEvent(event);
    }
    void reject() override {
        if (printStatusDialog().visible) printStatusClosedByUser();
        showModel();
    }

private:
    static constexpr int kStatusColumns = 60;

    // A path too long for the label loses its middle, so that both its start and the file's own
    // name stay in sight.
    QString elidedLines(const QString& text) const {
        QStringList lines = QString(text).replace("\r\n", "\n").split('\n');
        for (QString& line : lines)
            line = page_->fontMetrics().elidedText(line, Qt::ElideMiddle, page_->maximumWidth());
        return lines.join('\n');
    }

    QLabel* page_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace

bool showPrintForm(QWidget* parent, PrintDialogModel& m) {
    PrintForm form(parent, m);
    return form.exec() == QDialog::Accepted;
}

QDialog* makePrintStatusForm(QWidget* parent) { return new StatusForm(parent); }

void refreshPrintStatusForm(QDialog& form) { static_cast<StatusForm&>(form).showModel(); }

void setPrintStatusFormShown(QDialog& form, bool shown) {
    refreshPrintStatusForm(form);
    form.setVisible(shown);
}

}  // namespace hlyd
