// The form of the calculation report on the offscreen platform.

#include "epilisi.h"
#include "frmCalculation.h"
#include "MainWindowTest.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>

namespace veskora {
namespace {

using testing::HasSubstr;

class CalculationForm : public MainWindow
{
protected:
    /// Opens the form and does @p act in it.
    void open(const std::function<void(frmCalculation &)> &act)
    {
        QTimer::singleShot(0, [&] {
            auto &form = *window->findChild<frmCalculation *>();
            act(form);
            form.close();
        });
        trigger("mnuCALCULATION_item");
    }
};

TEST_F(CalculationForm, RefusesWithoutNodesRemembersAndWritesUnlessCancelled)
{
    start();
    desktop.expectMessage("No nodes have been defined yet.");
    trigger("mnuCALCULATION_item");

    start(TEST_DATA "/small.vsk");
    Epilisi();
    const std::string file = path("r.pdf");
    write(file, "before");
    open([&](frmCalculation &form) {
        form.findChild<QLineEdit *>("ReportTitle")->setText(" Halle ");
        form.findChild<QComboBox *>("ReportPaper")->setCurrentText("Letter");
        form.findChild<QComboBox *>("ReportDigits")->setCurrentText("all");
        desktop.expectFileDialog(file);
        QTimer::singleShot(0, [&] { form.findChild<QAbstractButton *>("CancelReport")->click(); });
        form.findChild<QAbstractButton *>("SaveReport")->click();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(contentOf(file), "before");
    });
    EXPECT_THAT(desktop.fileQuestions.back().proposed, testing::EndsWith("/small_report.pdf"));
    open([&](frmCalculation &form) {
        EXPECT_EQ(form.findChild<QLineEdit *>("ReportTitle")->text(), "Halle");
        EXPECT_EQ(form.findChild<QComboBox *>("ReportPaper")->currentText(), "Letter");
        EXPECT_EQ(form.findChild<QComboBox *>("ReportDigits")->currentText(), "all");
        desktop.expectFileDialog(file);
        form.findChild<QAbstractButton *>("SaveReport")->click();
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_THAT(contentOf(file), testing::StartsWith("%PDF"));
    EXPECT_THAT(log().back().toStdString(), HasSubstr("Calculation report: " + file));
}

} // namespace
} // namespace veskora
