#include "dialogs/print_options_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>
#include <functional>
#include <map>

#include "dialogs/dialog_place.h"
#include "dialogs/form_parts.h"
#include "dialogs/macro_strip.h"
#include "dialogs/print_fonts_tab.h"
#include "platform/qt/qt_text.h"
#include "models/print_options_checks.h"
#include "shell/print_options.h"
#include "models/print_options_macros.h"

namespace hlyd {

namespace {

class PrintOptionsForm : public QDialog {
public:
    PrintOptionsForm(QWidget* parent, PrintOptionsModel& m) : QDialog(parent), m_(m) {
        setObjectName("frmPrintOptions");
        setWindowTitle("Print Options");
        auto* box = new QVBoxLayout(this);
        tabs_ = named("tabOptions", new QTabWidget);
        tabs_->addTab(buildSettingsTab(), printOptionsTabs()[0]);
        tabs_->addTab(buildLayoutTab(), printOptionsTabs()[1]);
        fontsTab_ = new PrintFontsTab(m_);
        tabs_->addTab(fontsTab_, printOptionsTabs()[2]);
        box->addWidget(tabs_);
        lblMessage_ = named("lblMessage", new QLabel);
        lblMessage_->setWordWrap(true);
        lblMessage_->setStyleSheet("color: #a00000");
        box->addWidget(lblMessage_);
        box->addLayout(buildButtons());
        load();
    }

protected:
    void reject() override {
        store();
        bool changed = printOptionsChanged(m_);
        if (!Form_QueryUnload(m_)) {
            afterRefusal();
            return;
        }
        // A Yes to the question saved the options: that is an acceptance.
        if (changed && !printOptionsChanged(m_)) accept();
        else QDialog::reject();
    }

private:
    QCheckBox* check(const std::string& name, const char* caption, bool PrintOptionsValues::*value) {
        auto* box = named(name, new QCheckBox(caption));
        checks_.emplace_back(box, value);
        return box;
    }
    // A field checked when the user leaves it; `key` filters what may be typed.
    QLineEdit* field(const std::string& name, const std::function<void()>& leave, const char* allowed = "[-+0-9.,]*") {
        auto* edit = named(name, new QLineEdit);
        edit->setValidator(new QRegularExpressionValidator(QRegularExpression(allowed), edit));
        edit->setMaximumWidth(fontMetrics().horizontalAdvance("0000.0000") + 16);
        connect(edit, &QLineEdit::editingFinished, this, [this, leave] {
            store();
            leave();
            load();
        });
        fields_[name] = edit;
        return edit;
    }

    QWidget* buildSettingsTab() {
        auto* page = new QWidget;
        auto* grid = new QGridLayout(page);
        auto* numbers = new QGroupBox("Line Numbers");
        auto* numbersBox = new QFormLayout(numbers);
        numbersBox->addRow(check("chkLineNumbers", "Print &line numbers", &PrintOptionsValues::chkLineNumbers));
        const char* hows[] = {"Restart at each &procedure", "Restart at each &module", "&Continuous"};
        for (int i = 0; i < 3; ++i) {
            lineHow_[i] = named("optLineNumberHow" + std::to_string(i + 1), new QRadioButton(hows[i]));
            numbersBox->addRow(lineHow_[i]);
        }
        numbersBox->addRow("&Start at:",
                           field(
                                   "txtLineNumberStart", [this] { validateLineNumberStart(m_); }, "[0-9]*"));
        numbersBox->addRow("&Increment:",
                           field(
                                   "txtLineNumberIncrement", [this] { validateLineNumberIncrement(m_); }, "[0-9]*"));
        grid->addWidget(numbers, 0, 0);

        auto* procs = new QGroupBox("Procedures and Pages");
        auto* procsBox = new QFormLayout(procs);
        const char* skips[] = {"New pa&ge for each procedure", "&No break before a procedure",
                               "New col&umn for each procedure"};
        for (int i = 0; i < 3; ++i) {
            procSkip_[i] = named(std::string("optProcSkip") + kProcSkips[i], new QRadioButton(skips[i]));
            procsBox->addRow(procSkip_[i]);
        }
        procsBox->addRow("&Orphan lines:", field(
                                                   "txtOrphan", [this] { validateFormatNumbers(m_); }, "[0-9]*"));
        procsBox->addRow(
                check("chkPageNumberAsk", "As&k for the first page number", &PrintOptionsValues::chkPageNumberAsk));
        procsBox->addRow(check("chkPageNumberContinuous", "Number pages continuousl&y across files",
                               &PrintOptionsValues::chkPageNumberContinuous));
        grid->addWidget(procs, 0, 1);

        auto* format = new QGroupBox("Format");
        auto* formatBox = new QFormLayout(format);
        formatBox->addRow(check("chkIndent", "In&dent code", &PrintOptionsValues::chkIndent));
        formatBox->addRow("Indent &amount:",
                          field(
                                  "txtIndentAmount", [this] { validateFormatNumbers(m_); }, "[0-9]*"));
        formatBox->addRow("&Tab width:", field(
                                                 "txtTabWidth", [this] { validateFormatNumbers(m_); }, "[0-9]*"));
        formatBox->addRow(
                check("chkConnectControls", "Dra&w connector lines", &PrintOptionsValues::chkConnectControls));
        formatBox->addRow(check("chkContinueGenerate", "Break long lines with continuations",
                                &PrintOptionsValues::chkContinueGenerate));
        formatBox->addRow(
                check("chkContinueHonor", "Keep the code's own continuations", &PrintOptionsValues::chkContinueHonor));
        formatBox->addRow(
                check("chkSeparator", "Separator line between procedures", &PrintOptionsValues::chkSeparator));
        formatBox->addRow(check("chkSeparatorBold", "Bold separator line", &PrintOptionsValues::chkSeparatorBold));
        formatBox->addRow(
                check("chkSkipAttributes", "Print without fonts and colours", &PrintOptionsValues::chkSkipAttributes));
        grid->addWidget(format, 1, 0);

        auto* history = new QGroupBox("Print History");
        auto* historyBox = new QGridLayout(history);
        historyBox->addWidget(check("chkSaveHYInfo", "Keep a print histo&ry", &PrintOptionsValues::chkSaveHYInfo), 0, 0,
                              1, 2);
        txtSaveHYFile_ = named("txtSaveHYFile", new QLineEdit);
        historyBox->addWidget(txtSaveHYFile_, 1, 0);
        auto* browse = named("cmdHistoryFile", new QPushButton("&Browse..."));
        connect(browse, &QPushButton::clicked, this, [this] {
            store();
            cmdHistoryFile_Click(m_);
            load();
        });
        historyBox->addWidget(browse, 1, 1);
        historyBox->setRowStretch(2, 1);
        grid->addWidget(history, 1, 1);
        return page;
    }

    QWidget* buildLayoutTab() {
        auto* page = new QWidget;
        auto* grid = new QGridLayout(page);
        fraMargins_ = named("fraMargins", new QGroupBox);
        auto* margins = new QFormLayout(fraMargins_);
        const char* which[] = {"TOP", "BOTTOM", "LEFT", "RIGHT"};
        const char* captions[] = {"&Top:", "&Bottom:", "&Left:", "&Right:"};
        for (int i = 0; i < 4; ++i) {
            std::string w = which[i];
            margins->addRow(captions[i], field("txtMargin" + std::to_string(i), [this, w] {
                                if (sbPageLayoutValidateMargin(m_, w)) sbValidateBounds(m_);
                            }));
        }
        grid->addWidget(fraMargins_, 0, 0);

        fraColumns_ = named("fraColumns", new QGroupBox);
        auto* columns = new QFormLayout(fraColumns_);
        columns->addRow("&Number of columns:", field("txtColumns", [this] {
                            if (sbValidateNumberOfCol(m_)) sbValidateBounds(m_);
                        }));
        columns->addRow("&Spacing:", field("txtSpacing", [this] { sbPageLayoutValidateColSpecs(m_, "SPACING"); }));
        QLineEdit* width = field("txtWidth", [] {});
        width->setReadOnly(true);
        width->setFocusPolicy(Qt::NoFocus);
        columns->addRow("Column width:", width);
        columns->addRow(check("chkColumnSeparator", "Line bet&ween columns", &PrintOptionsValues::chkColumnSeparator));
        grid->addWidget(fraColumns_, 0, 1);

        auto* headings = named("fraHeadings", new QGroupBox("Headers and Footers"));
        auto* headingGrid = new QGridLayout(headings);
        const char* sides[] = {"Left", "Center", "Right"};
        for (int i = 0; i < 3; ++i) headingGrid->addWidget(new QLabel(sides[i]), 0, 1 + i, Qt::AlignHCenter);
        auto* header = new QLabel("Hea&der:");
        auto* footer = new QLabel("&Footer:");
        headingGrid->addWidget(header, 1, 0);
        headingGrid->addWidget(footer, 2, 0);
        for (int i = 0; i < kHeadingSections; ++i) {
            headings_[i] = named("txtHeading" + std::to_string(i), new QLineEdit);
            headings_[i]->setMinimumWidth(fontMetrics().horizontalAdvance("@FileName; @FileDate") + 16);
            connect(headings_[i], &QLineEdit::textEdited, this, [this] { store(); });
            headingGrid->addWidget(headings_[i], 1 + i / 3, 1 + i % 3);
        }
        header->setBuddy(headings_[0]);
        footer->setBuddy(headings_[3]);
        auto* strip = new MacroStrip([this](int button) { macroClicked(button); });
        headingGrid->addWidget(strip, 3, 0, 1, 4);
        auto* hint = named("lblHint", new QLabel(fromUtf8(macroStripHint())));
        hint->setWordWrap(true);
        headingGrid->addWidget(hint, 4, 0, 1, 4);
        grid->addWidget(headings, 1, 0, 1, 2);
        lblPrinter_ = named("lblPrinter", new QLabel);
        lblPrinter_->setWordWrap(true);
        grid->addWidget(lblPrinter_, 2, 0, 1, 2);
        grid->setRowStretch(3, 1);
        return page;
    }

    QHBoxLayout* buildButtons() {
        return okCancelHelpRow(
                this, [this] { okClicked(); }, "print-options.html");
    }

    void okClicked() {
        store();
        if (cmdOK_Click(m_)) {
            accept();
            return;
        }
        afterRefusal();
    }

    // The message shows, and the field it is about has the focus with its text selected.
    void afterRefusal() {
        load();
        QWidget* target = fields_.count(m_.focus) ? fields_[m_.focus] : nullptr;
        for (int i = 0; i < kHeadingSections && !target; ++i)
            if (m_.focus == "txtHeading" + std::to_string(i)) target = headings_[i];
        for (int e = 1; e <= kElementCount && !target; ++e)
            if (m_.focus == "cboFont" + std::to_string(e)) target = fontsTab_->fontField(e);
        if (!target) return;
        for (QWidget* p = target->parentWidget(); p; p = p->parentWidget())
            if (int tab = tabs_->indexOf(p); tab >= 0) tabs_->setCurrentIndex(tab);
        target->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(target)) edit->selectAll();
    }

    // The strip never takes the focus: the section being edited still has it.
    void macroClicked(int button) {
        m_.focusedSection = -1;
        for (int i = 0; i < kHeadingSections; ++i)
            if (focusWidget() == headings_[i]) m_.focusedSection = i;
        if (m_.focusedSection < 0) return;
        store();
        QLineEdit* section = headings_[m_.focusedSection];
        m_.cursor = static_cast<std::size_t>(section->cursorPosition());
        if (!insertMacro(m_, button)) return;
        load();
        section->setFocus();
        section->setCursorPosition(static_cast<int>(m_.cursor));
    }

    static constexpr char kProcSkips[] = {'P', 'N', 'C'};

    void store() {
        if (loading_) return;
        PrintOptionsValues& v = m_.v;
        for (auto& [box, value] : checks_) v.*value = box->isChecked();
        for (int i = 0; i < 3; ++i) {
            if (lineHow_[i]->isChecked()) v.optLineNumberHow = i + 1;
            if (procSkip_[i]->isChecked()) v.optProcSkip = kProcSkips[i];
        }
        for (auto& [name, edit] : fields_) *textOf(name) = toCp1252(edit->text());
        for (int i = 0; i < kHeadingSections; ++i) v.txtHeading[i] = toCp1252(headings_[i]->text());
        v.txtSaveHYFile = toLocalPath(txtSaveHYFile_->text());
    }

    void load() {
        loading_ = true;
        const PrintOptionsValues& v = m_.v;
        for (auto& [box, value] : checks_) box->setChecked(v.*value);
        for (int i = 0; i < 3; ++i) {
            lineHow_[i]->setChecked(v.optLineNumberHow == i + 1);
            procSkip_[i]->setChecked(v.optProcSkip == kProcSkips[i]);
        }
        for (auto& [name, edit] : fields_) edit->setText(fromCp1252(*textOf(name)));
        fields_["txtSpacing"]->setEnabled(m_.txtSpacingEnabled);
        for (int i = 0; i < kHeadingSections; ++i) headings_[i]->setText(fromCp1252(v.txtHeading[i]));
        txtSaveHYFile_->setText(fromLocalPath(v.txtSaveHYFile));
        fraMargins_->setTitle(fromUtf8(m_.fraMargins));
        fraColumns_->setTitle(fromUtf8(m_.fraColumns));
        lblMessage_->setText(fromUtf8(m_.lblMessage));
        lblPrinter_->setText(fromUtf8(m_.lblPrinter));
        fontsTab_->load();
        loading_ = false;
    }

    std::string* textOf(const std::string& name) {
        PrintOptionsValues& v = m_.v;
        static const std::map<std::string, std::string PrintOptionsValues::*> texts = {
                {"txtLineNumberStart", &PrintOptionsValues::txtLineNumberStart},
                {"txtLineNumberIncrement", &PrintOptionsValues::txtLineNumberIncrement},
                {"txtOrphan", &PrintOptionsValues::txtOrphan},
                {"txtIndentAmount", &PrintOptionsValues::txtIndentAmount},
                {"txtTabWidth", &PrintOptionsValues::txtTabWidth},
                {"txtColumns", &PrintOptionsValues::txtColumns},
                {"txtSpacing", &PrintOptionsValues::txtSpacing},
                {"txtWidth", &PrintOptionsValues::txtWidth},
        };
        if (auto found = texts.find(name); found != texts.end()) return &(v.*(found->second));
        return &v.txtMargin[static_cast<std::size_t>(name.back() - '0')];
    }

    PrintOptionsModel& m_;
    bool loading_ = true;  // the widgets are being filled: their signals are not the user's
    QTabWidget* tabs_ = nullptr;
    PrintFontsTab* fontsTab_ = nullptr;
    QLabel* lblMessage_ = nullptr;
    QLabel* lblPrinter_ = nullptr;
    QGroupBox* fraMargins_ = nullptr;
    QGroupBox* fraColumns_ = nullptr;
    QLineEdit* txtSaveHYFile_ = nullptr;
    std::array<QRadioButton*, 3> lineHow_{};
    std::array<QRadioButton*, 3> procSkip_{};
    std::array<QLineEdit*, kHeadingSections> headings_{};
    std::vector<std::pair<QCheckBox*, bool PrintOptionsValues::*>> checks_;
    std::map<std::string, QLineEdit*> fields_;
};

}  // namespace

bool showPrintOptionsForm(QWidget* parent, PrintOptionsModel& m) {
    PrintOptionsForm form(parent, m);
    fitAndCentre(form, parent);
    return form.exec() == QDialog::Accepted;
}

}  // namespace hlyd
