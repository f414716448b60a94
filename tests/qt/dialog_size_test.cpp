// Dialogs as a user first sees them, offscreen: the About box as large as its text, Print Options
// at a size the screen holds and over the main window, and Print Setup offering what the printer has.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <memory>

#include "base/app_info.h"
#include "dialogs/about_box.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/macro_strip.h"
#include "platform/printer.h"
#include "platform/qt/printer_dialog.h"
#include "models/print_options_macros.h"
#include "shown_window.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

// Every label shows its whole text: as wide as a line of it that cannot wrap, as high as its lines.
void expectWholeText(const QWidget& dialog) {
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        QSize needed = label->sizeHint();
        if (label->wordWrap()) needed.setHeight(label->heightForWidth(label->width()));
        else EXPECT_GE(label->width(), needed.width()) << label->objectName().toStdString();
        EXPECT_GE(label->height(), needed.height()) << label->objectName().toStdString();
    }
}

TEST(AboutBoxTest, ShowsNameVersionAndPurposeSizedToItsText) {
    AboutBox about(nullptr);
    about.show();
    QApplication::processEvents();
    EXPECT_EQ(about.windowTitle().toStdString(), "About " + theAppInfo().Title);
    EXPECT_EQ(about.findChild<QLabel*>("lblTitle")->text().toStdString(), theAppInfo().Title);
    EXPECT_NE(about.findChild<QLabel*>("lblVersion")->text().toStdString().find(theAppInfo().Version),
              std::string::npos);
    EXPECT_EQ(about.findChild<QLabel*>("lblDescription")->text().toStdString(), aboutSentence());
    expectWholeText(about);
    // Room for its title beside the window's buttons, yet no larger than the text asks.
    EXPECT_GE(about.width(), about.fontMetrics().horizontalAdvance(about.windowTitle()) * 2);
    EXPECT_EQ(about.size(), about.sizeHint());
    about.close();
}

class DialogPlaceTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        window = test::showWindow();
    }
    void TearDown() override {
        test::closeWindow(window);
        RecorderTest::TearDown();
    }
    std::unique_ptr<HlydWindow> window;
};

TEST_F(DialogPlaceTest, PrintOptionsOpensOverTheMainWindowAtASizeTheScreenHolds) {
    QRect screen = window->screen()->availableGeometry();
    window->setGeometry(screen.left() + screen.width() / 4, screen.top() + 40, screen.width() / 2, screen.height() / 2);
    QRect form, strip, main = window->frameGeometry();
    bool captionsFit = true;
    int least = 0, width = 0;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        form = dialog->frameGeometry();
        least = dialog->minimumSizeHint().width();
        width = dialog->width();
        auto* macros = dialog->findChild<MacroStrip*>("picMacros");
        for (int i = 0; i < kMacroButtons; ++i) {
            QString caption = QString::fromStdString(macroButtonCaptions()[static_cast<std::size_t>(i)]);
            captionsFit =
                    captionsFit && macros->buttonRect(i).width() >= macros->fontMetrics().horizontalAdvance(caption);
            captionsFit = captionsFit && macros->rect().contains(macros->buttonRect(i));
        }
        dialog->findChild<QPushButton*>("cmdCancel")->click();
    });
    window->action(kMnuOptionsPrint)->trigger();
    EXPECT_TRUE(screen.contains(form)) << form.x() << "," << form.y() << " " << form.width() << "x" << form.height();
    // The macro buttons wrap into rows, so the form need not be as wide as all fifteen in one.
    EXPECT_LE(least, screen.width());
    EXPECT_LE(width, std::max(screen.width() * 2 / 3, least));
    EXPECT_NEAR(form.center().x(),
                std::clamp(main.center().x(), screen.left() + form.width() / 2, screen.right() - form.width() / 2), 2);
    EXPECT_TRUE(captionsFit);
}

// The built-in PDF printer offers every paper and no duplex; the paper chosen is the request's.
TEST(PrintSetupDialogTest, ThePdfPrinterOffersPaperButNoDuplex) {
    PrinterDialogRequest request;
    request.printers = {kPdfPrinterName};
    request.printer = kPdfPrinterName;
    request.PaperSize = 9;
    request.Duplex = 2;
    QString shownPaper;
    bool duplexShown = true;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        auto* paper = dialog->findChild<QComboBox*>("cboPaperSize");
        shownPaper = paper->currentText();
        duplexShown = dialog->findChild<QComboBox*>("cboDuplex")->isVisible();
        paper->setCurrentIndex(paper->findData(5));  // Legal
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    ASSERT_TRUE(runPrinterDialog(nullptr, request));
    EXPECT_EQ(shownPaper.toStdString(), "A4");
    EXPECT_FALSE(duplexShown);
    EXPECT_EQ(request.PaperSize, 5);
    EXPECT_EQ(request.Duplex, 1);  // a PDF has one side to a page
}

}  // namespace
}  // namespace hlyd
