#include "dialogs/project_file_dialog.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

#include "base/app_info.h"
#include "models/project_file_model.h"
#include "platform/qt/qt_text.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "dialogs/help_key.h"
#include "shell/help_commands.h"
#include "shell/start_mode.h"

namespace hlyd {

namespace {

// The file indicator: red while the file is chosen, an empty outline while it is not.
QIcon fileIndicator(bool chosen) {
    QPixmap pixmap(12, 14);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(chosen ? QColor(160, 0, 0) : QColor(128, 128, 128));
    painter.setBrush(chosen ? QColor(220, 30, 30) : QColor(Qt::transparent));
    painter.drawRect(1, 1, 9, 11);
    return QIcon(pixmap);
}

class ProjectFileForm : public QDialog {
public:
    ProjectFileForm(QWidget* parent, ProjectFileModel& m) : QDialog(parent), m_(m) {
        setObjectName("frmProjectFile");
        setWindowTitle(fromCp1252(m.Caption));
        setSizeGripEnabled(true);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(buildSplitter(), 1);
        layout->addLayout(buildTreeButtons());
        layout->addLayout(buildDialogButtons());
        buildTree();
        setTips();
        picOTL_->setFocus();
        if (!items_.empty()) picOTL_->setCurrentItem(items_[1]);
        // Wide enough for a full path in the panel, tall enough for a project of a dozen members.
        resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 28)));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == picOTL_ && event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
            clickNode(nodeOf(picOTL_->currentItem()));
            return true;
        }
        return QDialog::eventFilter(watched, event);
    }

private:
    QPushButton* button(const char* name, const char* caption) {
        auto* b = new QPushButton(QString::fromUtf8(caption), this);
        b->setObjectName(name);
        b->setAutoDefault(false);  // Enter is OK wherever the focus is
        return b;
    }

    QSplitter* buildSplitter() {
        auto* split = new QSplitter(Qt::Horizontal, this);
        split->setObjectName("butSplit");
        picOTL_ = new QTreeWidget(split);
        picOTL_->setObjectName("picOTL");
        picOTL_->setHeaderLabel("Project, Type, Item");
        picOTL_->header()->setStretchLastSection(true);
        picOTL_->setExpandsOnDoubleClick(false);  // a click opens or closes a branch already
        picOTL_->installEventFilter(this);
        connect(picOTL_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { clickNode(nodeOf(item)); });
        connect(picOTL_, &QTreeWidget::itemExpanded, this,
                [this](QTreeWidgetItem* item) { m_.Outline.SetExpanded(nodeOf(item), true); });
        connect(picOTL_, &QTreeWidget::itemCollapsed, this,
                [this](QTreeWidgetItem* item) { m_.Outline.SetExpanded(nodeOf(item), false); });
        connect(picOTL_, &QTreeWidget::currentItemChanged, this,
                [this](QTreeWidgetItem* item) { showPanel(nodeOf(item)); });
        panel_ = new QStackedWidget(split);
        picFileInfo_ = new QLabel(panel_);
        picFileInfo_->setObjectName("picFileInfo");
        picFileInfo_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        picFileInfo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        picFileInfo_->setFrameShape(QFrame::StyledPanel);
        picFileInfo_->setMargin(fontMetrics().averageCharWidth());
        lstMiscOther_ = new QListWidget(panel_);
        lstMiscOther_->setObjectName("lstMiscOther");
        panel_->addWidget(picFileInfo_);
        panel_->addWidget(lstMiscOther_);
        split->setStretchFactor(0, 1);
        split->setStretchFactor(1, 1);
        return split;
    }

    QHBoxLayout* buildTreeButtons() {
        auto* row = new QHBoxLayout;
        cmdExpand_ = button("cmdExpand", "Expand All &>>");
        cmdCollapse_ = button("cmdCollapse", "&<< Collapse All");
        cmdSelectAll_ = button("cmdSelectAll", "Select &All");
        cmdDeselect_ = button("cmdDeselect", "&Deselect All");
        cmdSelectNewer_ = button("cmdSelectNewer", "Select &Updated");
        connect(cmdExpand_, &QPushButton::clicked, this, [this] { run([this] { m_.Outline.OutlineExpandAll(); }); });
        connect(cmdCollapse_, &QPushButton::clicked, this,
                [this] { run([this] { m_.Outline.OutlineCollapseAll(); }); });
        connect(cmdSelectAll_, &QPushButton::clicked, this, [this] { run([this] { m_.Outline.SelectAll(); }); });
        connect(cmdDeselect_, &QPushButton::clicked, this, [this] { run([this] { m_.Outline.DeselectAll(); }); });
        connect(cmdSelectNewer_, &QPushButton::clicked, this,
                [this] { run([this] { m_.Outline.SelectNewer(m_.Dates); }); });
        for (QPushButton* b : {cmdExpand_, cmdCollapse_, cmdSelectAll_, cmdDeselect_, cmdSelectNewer_})
            row->addWidget(b);
        row->addStretch(1);
        return row;
    }

    QHBoxLayout* buildDialogButtons() {
        auto* row = new QHBoxLayout;
        cmdOK_ = button("cmdOK", "OK");
        cmdOK_->setDefault(true);
        cmdCancel_ = button("cmdCancel", "Cancel");
        cmdHelp_ = button("cmdHelp", "&Help");
        cmdHelp_->setEnabled(helpAvailable());
        connect(cmdHelp_, &QPushButton::clicked, this, [] { showHelpPage("project-file.html"); });
        setHelpPage(this, "project-file.html");
        connect(cmdOK_, &QPushButton::clicked, this, [this] {
            if (cmdOK_Click(m_)) accept();
        });
        connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
        row->addStretch(1);
        for (QPushButton* b : {cmdOK_, cmdCancel_, cmdHelp_}) row->addWidget(b);
        return row;
    }

    void setTips() {
        if (!hlydSettings().ToolTips) return;
        cmdExpand_->setToolTip("Expand all branches to see all files");
        cmdCollapse_->setToolTip("Collapse all branches to see all files");
        cmdSelectNewer_->setToolTip("Select only files that have been modified since last " +
                                    fromUtf8(theAppInfo().Title));
        cmdSelectAll_->setToolTip("Select all files");
        cmdDeselect_->setToolTip("Deselect all files");
        cmdHelp_->setToolTip("Display help for Project File Processing");
        cmdOK_->setToolTip("Process all selected files");
        cmdCancel_->setToolTip("Close Project dialog without any processing");
        picOTL_->setToolTip(
                "Click on a file to toggle the selection indicated by the red file indicator or to "
                "expand/collapse a branch");
    }

    // One item per node, under the node that holds it; the item knows its node's number.
    void buildTree() {
        const cotlControl& outline = m_.Outline;
        items_.assign(static_cast<std::size_t>(outline.NodeCount()) + 1, nullptr);
        for (int n = 1; n <= outline.NodeCount(); ++n) {
            int parent = outline.ParentOf(n);
            auto* item = parent > 0 ? new QTreeWidgetItem(items_[static_cast<std::size_t>(parent)])
                                    : new QTreeWidgetItem(picOTL_);
            item->setText(0, fromCp1252(outline.Node(n).Text));
            item->setData(0, Qt::UserRole, n);
            items_[static_cast<std::size_t>(n)] = item;
        }
        showMarks();
    }

    int nodeOf(const QTreeWidgetItem* item) const { return item ? item->data(0, Qt::UserRole).toInt() : 0; }

    // The items follow the model's marks and branches; the model alone decides them.
    void showMarks() {
        const cotlControl& outline = m_.Outline;
        for (int n = 1; n <= outline.NodeCount(); ++n) {
            const OutlineNode& node = outline.Node(n);
            QTreeWidgetItem* item = items_[static_cast<std::size_t>(n)];
            if (node.IsFile) {
                item->setCheckState(0, node.Checked ? Qt::Checked : Qt::Unchecked);
                item->setIcon(0, fileIndicator(node.Checked));
            }
            if (node.Level < 2) item->setExpanded(node.Expanded);
        }
    }

    void run(const std::function<void()>& handler) {
        handler();
        showMarks();
    }

    void clickNode(int n) {
        if (n > 0) run([this, n] { m_.Outline.OutlineClick(n); });
    }

    void showPanel(int n) {
        ProjectPanel panel = panelOf(m_, n);
        if (panel.ShowList) {
            lstMiscOther_->clear();
            for (const std::string& line : panel.Lines) lstMiscOther_->addItem(fromCp1252(line));
            panel_->setCurrentWidget(lstMiscOther_);
            return;
        }
        QStringList lines;
        for (const std::string& line : panel.Lines) lines.append(fromCp1252(line));
        picFileInfo_->setText(lines.join('\n'));
        panel_->setCurrentWidget(picFileInfo_);
    }

    ProjectFileModel& m_;
    QTreeWidget* picOTL_ = nullptr;
    QStackedWidget* panel_ = nullptr;
    QLabel* picFileInfo_ = nullptr;
    QListWidget* lstMiscOther_ = nullptr;
    QPushButton *cmdExpand_ = nullptr, *cmdCollapse_ = nullptr, *cmdSelectAll_ = nullptr, *cmdDeselect_ = nullptr,
                *cmdSelectNewer_ = nullptr, *cmdOK_ = nullptr, *cmdCancel_ = nullptr, *cmdHelp_ = nullptr;
    std::vector<QTreeWidgetItem*> items_;  // from 1, as the nodes
};

}  // namespace

bool showProjectFileForm(QWidget* parent, ProjectFileModel& m) {
    // A file printed from the command line runs without forms: every member, as listed.
    if (hlydMain().StartMode == kStartCommandLineFile) return cmdOK_Click(m);
    ProjectFileForm form(parent, m);
    return form.exec() == QDialog::Accepted;
}

}  // namespace hlyd
