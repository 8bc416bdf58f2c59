#include "frmCalculation.h"

#include "Desktop.h"
#include "Files.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "QtDesktop.h"
#include "Registry.h"
#include "Text.h"
#include "ui_frmCalculation.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>

namespace veskora {

namespace {

constexpr const char *calculationSettings = "CalculationReport";
constexpr const char *yes = "1", *no = "0";

std::string remembered(const char *key, const std::string &standard = {})
{
    return desktop().setting(calculationSettings, key, standard);
}

/// The entry that was remembered by its data's text, else @p standard.
void pick(QComboBox *list, const char *key, int standard)
{
    const int kept = list->findData(static_cast<int>(Val(remembered(key, "-1"))));
    list->setCurrentIndex(kept >= 0 ? kept : list->findData(standard));
}

} // namespace

frmCalculation::frmCalculation(QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmCalculation>())
{
    ui_->setupUi(this);
    setCaptions();
    recall();
    connect(ui_->SaveReport, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->CancelReport, &QPushButton::clicked, this, &QDialog::reject);
    assignDialogMnemonics(this);
}

frmCalculation::~frmCalculation() = default;

void frmCalculation::setCaptions()
{
    constexpr int fewestDigits = 3, mostDigits = 9;
    setWindowTitle(qtText(Metafrasi(1920, "Calculation report as PDF")));
    ui_->LabelTitle->setText(qtText(Metafrasi(1922, "Title")));
    ui_->ReportTitle->setPlaceholderText(qtText(Metafrasi(1921, "Calculation report")));
    ui_->LabelAuthor->setText(qtText(Metafrasi(1923, "Author")));
    ui_->LabelPaper->setText(qtText(Metafrasi(1924, "Paper")));
    ui_->ReportPaper->addItem("A4", static_cast<int>(Paper::A4));
    ui_->ReportPaper->addItem("Letter", static_cast<int>(Paper::letter));
    ui_->LabelDigits->setText(qtText(Metafrasi(1925, "Significant digits")));
    for (int digits = fewestDigits; digits <= mostDigits; ++digits)
        ui_->ReportDigits->addItem(QString::number(digits), digits);
    ui_->ReportDigits->addItem(qtText(Metafrasi(1926, "all")), RegionalNumbers::allDigits);
    ui_->WithCheck->setText(qtText(Metafrasi(1927, "With the check of the analysis")));
    ui_->OpenAfterwards->setText(qtText(Metafrasi(1928, "Open the file afterwards")));
    ui_->Progress->setAccessibleName(qtText(Metafrasi(1930, "Pages made")));
    ui_->SaveReport->setText(qtText(Metafrasi(302, "Save")));
    ui_->CancelReport->setText(qtText(Metafrasi(2003, "Cancel")));
}

void frmCalculation::recall()
{
    ui_->ReportTitle->setText(QString::fromStdString(remembered("Title")));
    ui_->ReportAuthor->setText(QString::fromStdString(remembered("Author")));
    pick(ui_->ReportPaper, "Paper", static_cast<int>(usualPaper(QLocale::system().territory())));
    pick(ui_->ReportDigits, "Digits", CalculationOptions().digits);
    ui_->WithCheck->setChecked(remembered("Check", no) == yes);
    ui_->OpenAfterwards->setChecked(remembered("Open", no) == yes);
}

void frmCalculation::remember() const
{
    const CalculationOptions options = chosen();
    const auto store = [](const char *key, const std::string &value) {
        desktop().storeSetting(calculationSettings, key, value);
    };
    store("Title", options.title);
    store("Author", options.author);
    store("Paper", numberText(static_cast<int>(options.paper)));
    store("Digits", numberText(options.digits));
    store("Check", options.withCheck ? yes : no);
    store("Open", ui_->OpenAfterwards->isChecked() ? yes : no);
    writeSettingsOrTell();
}

CalculationOptions frmCalculation::chosen() const
{
    return {.title = ui_->ReportTitle->text().trimmed().toStdString(),
            .author = ui_->ReportAuthor->text().trimmed().toStdString(),
            .paper = static_cast<Paper>(ui_->ReportPaper->currentData().toInt()),
            .digits = ui_->ReportDigits->currentData().toInt(),
            .withCheck = ui_->WithCheck->isChecked()};
}

/// @return empty where it was cancelled
std::string frmCalculation::made()
{
    const QScopedValueRollback working(isWorking_, true);
    isCancelled_ = false;
    ui_->Progress->show();
    const CalculationOptions options = chosen();
    std::string content =
        pdfOf(calculationDocument(options), options.paper, [this](int done, int pages) {
            ui_->Progress->setMaximum(pages);
            ui_->Progress->setValue(done);
            QCoreApplication::processEvents();
            return !isCancelled_;
        });
    ui_->Progress->hide();
    return content;
}

void frmCalculation::accept()
{
    if (isWorking_)
        return;
    remember();
    const BoxOwner owner(this);
    const std::string path =
        writeAskedFile([this] { return made(); }, Metafrasi(1730, "PDF files") + " (*.pdf)|*.pdf",
                       Onoma_Arxeiou, "_report", ".pdf");
    if (path.empty())
        return;
    Grammi_Log(Metafrasi(1931, "Calculation report:") + " " + path, logColour::black);
    QDialog::accept();
    if (ui_->OpenAfterwards->isChecked())
        emit openWanted(QString::fromStdString(path));
}

void frmCalculation::reject()
{
    if (isWorking_)
        isCancelled_ = true;
    else
        QDialog::reject();
}

} // namespace veskora

#include "moc_frmCalculation.cpp"
