#include "dialogs/display_options_dialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>
#include <map>

#include "dialogs/help_key.h"
#include "dialogs/element_sample.h"
#include "dialogs/form_parts.h"
#include "platform/qt/classic_colour.h"
#include "platform/qt/qt_text.h"
#include "shell/display_options.h"
#include "models/display_options_fonts.h"
#include "models/display_options_rules.h"

namespace hlyd {

namespace {

QString caption(const std::string& control) { return fromUtf8(displayOptionsCaption(control)); }
std::string indexed(const char* name, int i) { return name + std::to_string(i); }

// A colour button shows its colour as a swatch with a frame, so that a white one is seen too.
QIcon swatch(const QColor& colour) {
    QPixmap pixmap(32, 16);
    pixmap.fill(colour);
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

// One row of the fonts tab: the sample, the font's text and the two colour buttons.
struct FontRow {
    ElementSample* sample = nullptr;
    QLineEdit* font = nullptr;
    QPushButton* fore = nullptr;
    QPushButton* back = nullptr;
};

// frmDisplayOptions: the widgets mirror the model; every action stores them, runs the model's
// handler and shows the model again.
class DisplayOptionsForm : public QDialog {
public:
    DisplayOptionsForm(QWidget* parent, DisplayOptionsModel& m) : QDialog(parent), m_(m) {
        setObjectName("frmDisplayOptions");
        setHelpPage(this, "display-options.html");
        setWindowTitle(caption("frmDisplayOptions"));
        auto* box = new QVBoxLayout(this);
        tabs_ = named("tabOptions", new QTabWidget);
        tabs_->addTab(buildGeneral(), caption("tabGeneral"));
        tabs_->addTab(buildListing(), caption("tabListing"));
        tabs_->addTab(buildFonts(), caption("tabFonts"));
        tabs_->addTab(buildFiles(), caption("tabFiles"));
        box->addWidget(tabs_);
        lblMessage_ = named("lblMessage", new QLabel);
        lblMessage_->setWordWrap(true);
        box->addWidget(lblMessage_);
        box->addLayout(buildButtons());
        load();
    }

    // The fields tell the form no more once it goes: a field that loses the focus while the
    // form is taken down must not run a rule on it.
    ~DisplayOptionsForm() override {
        for (QLineEdit* edit : extEdit_) edit->removeEventFilter(this);
        for (int e = 1; e <= kElementCount; ++e)
            for (QWidget* w : rowWidgets(e)) w->removeEventFilter(this);
    }

protected:
    // Escape and the window's close box (which comes here too): with changes the user is asked
    // whether to save them.
    void reject() override {
        if (cancelling_ || queryUnload()) QDialog::reject();
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        int field = extensionField(watched);
        bool handled = field >= 0 ? extensionEvent(field, event) : opensChooser(event) && rowAction(watched);
        return handled || QDialog::eventFilter(watched, event);
    }

private:
    QCheckBox* check(const std::string& name) {
        auto* box = named(name, new QCheckBox(caption(name)));
        connect(box, &QCheckBox::clicked, this, [this] { edited(); });
        checks_[name] = box;
        return box;
    }
    QRadioButton* option(const std::string& name) {
        auto* button = named(name, new QRadioButton(caption(name)));
        connect(button, &QRadioButton::clicked, this, [this] { edited(); });
        return button;
    }
    QLineEdit* field(const std::string& name, QLabel* label) {
        auto* edit = named(name, new QLineEdit);
        connect(edit, &QLineEdit::textEdited, this, [this] { edited(); });
        if (label) label->setBuddy(edit);
        return edit;
    }

    QWidget* buildGeneral() {
        auto* page = new QWidget;
        auto* box = new QVBoxLayout(page);
        box->addWidget(check("chkShowOpenDialog"));
        auto* location = new QLabel(caption("lblDefaultFileLoc"));
        box->addWidget(location);
        auto* row = new QHBoxLayout;
        txtDefaultFileLoc_ = field("txtDefaultFileLoc", location);
        txtDefaultFileLoc_->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
        row->addWidget(txtDefaultFileLoc_, 1);
        auto* browse = named("cmdDefaultFileLoc", new QToolButton);
        browse->setText(caption("cmdDefaultFileLoc"));
        browse->setToolTip("Choose a file in the folder to start from");
        connect(browse, &QToolButton::clicked, this, [this] { act([this] { cmdDefaultFileLoc_Click(m_); }); });
        row->addWidget(browse);
        box->addLayout(row);
        auto* user = named("fraUser", new QGroupBox(caption("fraUser")));
        auto* grid = new QGridLayout(user);
        for (int i = 0; i < 2; ++i) {
            auto* label = new QLabel(caption(indexed("lblUser", i)));
            txtUser_[i] = field(indexed("txtUser", i), label);
            grid->addWidget(label, i, 0);
            grid->addWidget(txtUser_[i], i, 1);
        }
        box->addWidget(user);
        box->addStretch();
        return page;
    }

    QWidget* buildListing() {
        auto* page = new QWidget;
        auto* grid = new QGridLayout(page);
        auto* view = named("fraView", new QGroupBox(caption("fraView")));
        auto* viewBox = new QVBoxLayout(view);
        for (int i = 0; i < 3; ++i) viewBox->addWidget(optView_[i] = option(indexed("optView", i)));
        viewBox->addWidget(check("chkSkipAttributes"));
        grid->addWidget(view, 0, 0);
        auto* continuation = named("fraContinuation", new QGroupBox(caption("fraContinuation")));
        auto* contBox = new QVBoxLayout(continuation);
        contBox->addWidget(check("chkGenerateIfNeeded"));
        contBox->addWidget(optKeep_ = option("optKeepIfFound"));
        contBox->addWidget(optDelete_ = option("optDeleteIfFound"));
        contBox->addStretch();
        grid->addWidget(continuation, 0, 1);
        grid->addWidget(buildIndent(), 1, 0);
        auto* separator = named("fraSeparator", new QGroupBox(caption("fraSeparator")));
        auto* sepBox = new QVBoxLayout(separator);
        sepBox->addWidget(check("chkProcSeparatorLine"));
        sepBox->addWidget(check("chkSeparatorLineBold"));
        sepBox->addStretch();
        grid->addWidget(separator, 1, 1);
        grid->setRowStretch(2, 1);
        return page;
    }

    QWidget* buildIndent() {
        auto* indent = named("fraIndent", new QGroupBox(caption("fraIndent")));
        auto* box = new QGridLayout(indent);
        box->addWidget(check("chkAutoIndent"), 0, 0, 1, 2);
        box->addWidget(check("chkConnectors"), 1, 0, 1, 2);
        auto* amount = new QLabel(caption("lblIndentBy"));
        spnIndentBy_ = named("spnIndentBy", new QSpinBox);
        spnIndentBy_->setRange(0, 16);
        connect(spnIndentBy_, &QSpinBox::valueChanged, this, [this] { edited(); });
        amount->setBuddy(spnIndentBy_);
        box->addWidget(amount, 2, 0);
        box->addWidget(spnIndentBy_, 2, 1);
        auto* tab = new QLabel(caption("lblTabWidth"));
        txtTabWidth_ = field("txtTabWidth", tab);
        txtTabWidth_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,2}"), txtTabWidth_));
        box->addWidget(tab, 3, 0);
        box->addWidget(txtTabWidth_, 3, 1);
        return indent;
    }

    QWidget* buildFonts() {
        auto* page = new QWidget;
        auto* box = new QVBoxLayout(page);
        box->addWidget(named("lblFontsHint", new QLabel(caption("lblFontsHint"))));
        auto* grid = new QGridLayout;
        const char* headings[] = {"Element", "Sample", "Font", "Text", "Back"};
        for (int column = 0; column < 5; ++column) grid->addWidget(new QLabel(headings[column]), 0, column);
        for (int e = 1; e <= kElementCount; ++e) buildFontRow(grid, e);
        grid->setColumnStretch(1, 1);
        box->addLayout(grid);
        auto* buttons = new QHBoxLayout;
        for (int i = 0; i < 2; ++i) {
            auto* button = named(indexed("cmdAllFonts", i), new QPushButton(caption(indexed("cmdAllFonts", i))));
            connect(button, &QPushButton::clicked, this, [this, i] { allFonts(i); });
            buttons->addWidget(button);
        }
        buttons->addStretch();
        box->addLayout(buttons);
        box->addStretch();
        return page;
    }

    void buildFontRow(QGridLayout* grid, int e) {
        FontRow& row = rows_[e];
        QString element = fromUtf8(elementName(e));
        grid->addWidget(new QLabel(element), e, 0);
        row.sample = new ElementSample(e);
        grid->addWidget(row.sample, e, 1);
        row.font = named(indexed("txtFont", e), new QLineEdit);
        row.font->setReadOnly(true);
        row.font->setMinimumWidth(fontMetrics().averageCharWidth() * 28);
        grid->addWidget(row.font, e, 2);
        row.fore = named(indexed("btnForeColor", e), new QPushButton);
        row.back = named(indexed("btnBackColor", e), new QPushButton);
        row.fore->setToolTip("Text color of " + element);
        row.back->setToolTip("Background color of " + element);
        for (QPushButton* button : {row.fore, row.back}) button->setIconSize({32, 16});
        grid->addWidget(row.fore, e, 3);
        grid->addWidget(row.back, e, 4);
        for (QWidget* w : rowWidgets(e)) w->installEventFilter(this);
    }

    QWidget* buildFiles() {
        auto* page = new QWidget;
        auto* grid = new QGridLayout(page);
        auto* dialect = named("fraDialect", new QGroupBox(caption("fraDialect")));
        auto* dialectBox = new QVBoxLayout(dialect);
        for (int i = 0; i < 4; ++i) {
            optDialect_[i] = option(indexed("optDialect", i));
            connect(optDialect_[i], &QRadioButton::clicked, this,
                    [this, i] { act([this, i] { optDialect_Click(m_, i); }); });
            dialectBox->addWidget(optDialect_[i]);
        }
        grid->addWidget(dialect, 0, 0);
        auto* detect = named("fraDetect", new QGroupBox(caption("fraDetect")));
        auto* detectBox = new QVBoxLayout(detect);
        for (int i = 0; i < 2; ++i) {
            optAutoDetect_[i] = option(indexed("optAutoDetect", i));
            connect(optAutoDetect_[i], &QRadioButton::clicked, this,
                    [this, i] { act([this, i] { optAutoDetect_Click(m_, i); }); });
            detectBox->addWidget(optAutoDetect_[i]);
        }
        lblDialect_ = named("lblDialect", new QLabel);
        lblDialect_->setWordWrap(true);
        lblDialect_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        lblDialect_->setMinimumHeight(fontMetrics().lineSpacing() * 6);
        detectBox->addWidget(lblDialect_, 1);
        grid->addWidget(detect, 0, 1);
        grid->addWidget(buildExtensions(), 1, 0, 1, 2);
        grid->setColumnStretch(1, 1);
        return page;
    }

    QWidget* buildExtensions() {
        auto* frame = named("fraExtension", new QGroupBox(caption("fraExtension")));
        auto* grid = new QGridLayout(frame);
        auto* hint = named("lblExtensionHint", new QLabel(caption("lblExtensionHint")));
        hint->setWordWrap(true);
        grid->addWidget(hint, 3, 0, 1, 3);
        for (int i = 0; i < 3; ++i) {
            auto* label = new QLabel(caption(indexed("lblExtension", i)));
            extEdit_[i] = field(indexed("cboExtension", i), label);
            extEdit_[i]->setToolTip("Type an extension and leave the field to add it");
            extEdit_[i]->installEventFilter(this);
            extList_[i] = named(indexed("lstExtension", i), new QListWidget);
            extList_[i]->setToolTip("Double click an extension to remove it");
            extList_[i]->setMaximumHeight(fontMetrics().height() * 6);
            connect(extList_[i], &QListWidget::itemDoubleClicked, this, [this, i](QListWidgetItem* item) {
                act([this, i, item] { cboExtension_DblClick(m_, i, toCp1252(item->text())); });
            });
            grid->addWidget(label, 0, i);
            grid->addWidget(extEdit_[i], 1, i);
            grid->addWidget(extList_[i], 2, i);
        }
        return frame;
    }

    QHBoxLayout* buildButtons() {
        auto* row = new QHBoxLayout;
        auto* ok = named("cmdOk", new QPushButton(caption("cmdOk")));
        ok->setDefault(true);
        connect(ok, &QPushButton::clicked, this, [this] { okClicked(); });
        auto* cancel = named("cmdCancel", new QPushButton(caption("cmdCancel")));
        connect(cancel, &QPushButton::clicked, this, [this] {
            cancelling_ = true;
            reject();
        });
        row->addStretch();
        row->addWidget(ok);
        row->addWidget(cancel);
        return row;
    }

    std::array<QWidget*, 3> rowWidgets(int e) const { return {rows_[e].font, rows_[e].fore, rows_[e].back}; }
    static bool isEnter(QEvent* event) {
        if (event->type() != QEvent::KeyPress) return false;
        int key = static_cast<QKeyEvent*>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    }
    // A double click opens a font or colour dialog; so do Enter and Space, for the keyboard.
    static bool opensChooser(QEvent* event) {
        bool space = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
        return event->type() == QEvent::MouseButtonDblClick || isEnter(event) || space;
    }
    // Enter in an extension field adds what it holds, as leaving it does, instead of closing the form.
    bool extensionEvent(int field, QEvent* event) {
        if (event->type() == QEvent::FocusOut) extensionLeft(field, static_cast<QFocusEvent*>(event));
        if (!isEnter(event)) return false;
        extensionLeaves(field);
        return true;
    }
    int extensionField(QObject* watched) const {
        for (int i = 0; i < 3; ++i)
            if (watched == extEdit_[i]) return i;
        return -1;
    }
    // Leaving an extension field runs its rule; a refusal brings the focus back.
    void extensionLeft(int i, QFocusEvent* event) {
        if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason) return;
        extensionLeaves(i);
    }
    void extensionLeaves(int i) {
        if (extEdit_[i]->text().trimmed().isEmpty()) return;
        m_.focus.clear();
        act([this, i] { cboExtension_LostFocus(m_, i, toCp1252(extEdit_[i]->text())); });
        if (m_.focus.empty()) {
            extEdit_[i]->clear();
            return;
        }
        QPointer<QLineEdit> edit(extEdit_[i]);
        QTimer::singleShot(0, this, [edit] {
            if (edit && edit->isVisible()) edit->setFocus(), edit->selectAll();
        });
    }
    bool extensionsLeft() {
        for (int i = 0; i < 3; ++i) {
            extensionLeaves(i);
            if (!m_.focus.empty()) return false;
        }
        return true;
    }

    // A double click (or Enter or Space) on a font or a colour of the fonts tab.
    bool rowAction(QObject* watched) {
        for (int e = 1; e <= kElementCount; ++e) {
            if (watched == rows_[e].font) return chooseFont(e), true;
            if (watched == rows_[e].fore) return chooseColour(e, true), true;
            if (watched == rows_[e].back) return chooseColour(e, false), true;
        }
        return false;
    }
    void chooseFont(int e) {
        bool ok = false;
        QFont chosen = QFontDialog::getFont(&ok, qtFontOf(m_.elements[e].Font), this, fromUtf8(fontDialogTitle(e)));
        if (ok) act([this, e, &chosen] { setElementFont(m_, e, fontSpecOf(chosen)); });
    }
    void chooseColour(int e, bool foreground) {
        const AttributeRecord& a = m_.elements[e];
        QString what = foreground ? "Text Color for: " : "Background Color for: ";
        QColor chosen = QColorDialog::getColor(classicColour(foreground ? a.ForeColor : a.BackColor), this,
                                               what + fromUtf8(elementName(e)));
        if (chosen.isValid())
            act([this, e, foreground, &chosen] { setElementColour(m_, e, foreground, classicValue(chosen)); });
    }
    void allFonts(int index) {
        if (index == kCopyFromPrintSettings) return act([this] { copyFontsFromPrintSettings(m_); });
        bool ok = false;
        QFont chosen = QFontDialog::getFont(&ok, qtFontOf(m_.elements[kElemKeyWords].Font), this,
                                            caption("cmdAllFonts0").remove('&'));
        if (ok) act([this, &chosen] { changeAllFonts(m_, fontSpecOf(chosen)); });
    }

    void okClicked() {
        store();
        if (extensionsLeft() && cmdOk_Click(m_)) {
            accept();
            return;
        }
        load();
        if (m_.focus == "txtTabWidth") {
            tabs_->setCurrentIndex(1);
            txtTabWidth_->setFocus();
            txtTabWidth_->selectAll();
        }
    }
    bool queryUnload() {
        store();
        bool close = Form_QueryUnload(m_);
        if (!close) load();
        return close;
    }
    void edited() {
        if (!loading_) m_.changed = true;
    }
    template <class F>
    void act(F handler) {
        store();
        handler();
        load();
    }
    void store() {
        m_.chkShowOpenDialog = checks_["chkShowOpenDialog"]->isChecked();
        m_.txtDefaultFileLoc = toUtf8(txtDefaultFileLoc_->text());
        for (int i = 0; i < 2; ++i) m_.txtUser[i] = toCp1252(txtUser_[i]->text());
        for (int i = 0; i < 3; ++i)
            if (optView_[i]->isChecked()) m_.optView = i;
        m_.chkSkipAttributes = checks_["chkSkipAttributes"]->isChecked();
        m_.chkGenerateIfNeeded = checks_["chkGenerateIfNeeded"]->isChecked();
        m_.optKeepIfFound = optKeep_->isChecked();
        m_.chkAutoIndent = checks_["chkAutoIndent"]->isChecked();
        m_.chkConnectors = checks_["chkConnectors"]->isChecked();
        m_.spnIndentBy = spnIndentBy_->value();
        m_.txtTabWidth = toCp1252(txtTabWidth_->text());
        m_.chkProcSeparatorLine = checks_["chkProcSeparatorLine"]->isChecked();
        m_.chkSeparatorLineBold = checks_["chkSeparatorLineBold"]->isChecked();
        for (int i = 0; i < 4; ++i)
            if (optDialect_[i]->isChecked()) m_.optDialect = i;
        m_.optAutoDetect = optAutoDetect_[kDetectManual]->isChecked() ? kDetectManual : kDetectAuto;
    }
    void load() {
        loading_ = true;
        checks_["chkShowOpenDialog"]->setChecked(m_.chkShowOpenDialog);
        txtDefaultFileLoc_->setText(fromUtf8(m_.txtDefaultFileLoc));
        for (int i = 0; i < 2; ++i) txtUser_[i]->setText(fromCp1252(m_.txtUser[i]));
        optView_[m_.optView]->setChecked(true);
        checks_["chkSkipAttributes"]->setChecked(m_.chkSkipAttributes);
        checks_["chkGenerateIfNeeded"]->setChecked(m_.chkGenerateIfNeeded);
        (m_.optKeepIfFound ? optKeep_ : optDelete_)->setChecked(true);
        checks_["chkAutoIndent"]->setChecked(m_.chkAutoIndent);
        checks_["chkConnectors"]->setChecked(m_.chkConnectors);
        spnIndentBy_->setValue(m_.spnIndentBy);
        txtTabWidth_->setText(fromCp1252(m_.txtTabWidth));
        checks_["chkProcSeparatorLine"]->setChecked(m_.chkProcSeparatorLine);
        checks_["chkSeparatorLineBold"]->setChecked(m_.chkSeparatorLineBold);
        optDialect_[m_.optDialect]->setChecked(true);
        optAutoDetect_[m_.optAutoDetect]->setChecked(true);
        lblDialect_->setText(fromUtf8(m_.lblDialect));
        lblMessage_->setText(fromUtf8(m_.lblMessage));
        for (int i = 0; i < 3; ++i) {
            extList_[i]->clear();
            for (const std::string& ext : m_.cboExtension[static_cast<std::size_t>(i)])
                extList_[i]->addItem(fromCp1252(ext));
        }
        for (int e = 1; e <= kElementCount; ++e) loadRow(e);
        loading_ = false;
    }
    void loadRow(int e) {
        const AttributeRecord& a = m_.elements[e];
        rows_[e].sample->showAttributes(a);
        rows_[e].font->setText(fromUtf8(fontText(a.Font)));
        rows_[e].fore->setIcon(swatch(classicColour(a.ForeColor)));
        rows_[e].back->setIcon(swatch(classicColour(a.BackColor)));
    }

    DisplayOptionsModel& m_;
    QTabWidget* tabs_ = nullptr;
    QLabel* lblMessage_ = nullptr;
    QLabel* lblDialect_ = nullptr;
    QLineEdit* txtDefaultFileLoc_ = nullptr;
    std::array<QLineEdit*, 2> txtUser_{};
    std::array<QRadioButton*, 3> optView_{};
    QRadioButton* optKeep_ = nullptr;
    QRadioButton* optDelete_ = nullptr;
    QSpinBox* spnIndentBy_ = nullptr;
    QLineEdit* txtTabWidth_ = nullptr;
    std::array<QRadioButton*, 4> optDialect_{};
    std::array<QRadioButton*, 2> optAutoDetect_{};
    std::array<QLineEdit*, 3> extEdit_{};
    std::array<QListWidget*, 3> extList_{};
    std::array<FontRow, kElementCount + 1> rows_{};
    std::map<std::string, QCheckBox*> checks_;
    bool loading_ = false;
    bool cancelling_ = false;
};

}  // namespace

void showDisplayOptionsForm(QWidget* parent, DisplayOptionsModel& m) {
    DisplayOptionsForm form(parent, m);
    form.exec();
}

}  // namespace hlyd
