#include "dialogs/find_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "display/text_search.h"

namespace hlyd {

FindBar::FindBar(QWidget* parent) : QWidget(parent) {
    setObjectName("FindBar");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    auto* label = new QLabel("&Find:", this);
    field_ = new QLineEdit(this);
    field_->setObjectName("txtFind");
    field_->setClearButtonEnabled(true);
    label->setBuddy(field_);
    matchCase_ = new QCheckBox("Match &case", this);
    matchCase_->setObjectName("chkMatchCase");
    wholeWord_ = new QCheckBox("&Whole word", this);
    wholeWord_->setObjectName("chkWholeWord");
    auto* next = new QPushButton("&Next", this);
    next->setObjectName("cmdFindNext");
    auto* previous = new QPushButton("&Previous", this);
    previous->setObjectName("cmdFindPrevious");
    auto* all = new QPushButton("In &All Files", this);
    all->setObjectName("cmdFindAll");
    auto* close = new QToolButton(this);
    close->setObjectName("cmdFindClose");
    close->setText("\u00D7");
    close->setToolTip("Close the find bar (Esc)");
    close->setAutoRaise(true);
    for (QWidget* w : {static_cast<QWidget*>(label), static_cast<QWidget*>(field_)}) layout->addWidget(w);
    layout->setStretchFactor(field_, 1);
    for (QWidget* w :
         {static_cast<QWidget*>(matchCase_), static_cast<QWidget*>(wholeWord_), static_cast<QWidget*>(next),
          static_cast<QWidget*>(previous), static_cast<QWidget*>(all), static_cast<QWidget*>(close)})
        layout->addWidget(w);
    connect(next, &QPushButton::clicked, this, [this] { emit findAsked(true); });
    connect(previous, &QPushButton::clicked, this, [this] { emit findAsked(false); });
    connect(all, &QPushButton::clicked, this, &FindBar::findAllAsked);
    connect(close, &QToolButton::clicked, this, [this] {
        hide();
        emit closed();
    });
}

void FindBar::open() {
    show();
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

QString FindBar::text() const { return field_->text(); }

SearchOptions FindBar::options() const { return SearchOptions{matchCase_->isChecked(), wholeWord_->isChecked()}; }

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            hide();
            emit closed();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter: emit findAsked(!(event->modifiers() & Qt::ShiftModifier)); return;
        default: QWidget::keyPressEvent(event);
    }
}

}  // namespace hlyd
