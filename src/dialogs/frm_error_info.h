#pragma once
// frmErrorInfo in the window: the report of an unexpected failure, with buttons to copy it and to
// mail it to support. Its texts and buttons' work are in shell/error_info_model.
#include <QDialog>
#include <string>

#include "shell/error_info_model.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace hlyd {

class FrmErrorInfo : public QDialog {
    Q_OBJECT
public:
    FrmErrorInfo(const std::string& report, QWidget* parent);

private:
    void onCopy();
    void onMail();

    ErrorInfoModel model_;
    QPlainTextEdit* txtError_ = nullptr;
    QLabel* lblStatus_ = nullptr;
};

// Shows the report modally, over the window in front, until the user closes it.
void showErrorInfo(const std::string& report);

}  // namespace hlyd
