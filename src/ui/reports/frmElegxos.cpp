#include "frmElegxos.h"

#include "Desktop.h"
#include "Files.h"
#include "Functions.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "ModelCheck.h"
#include "QtDesktop.h"
#include "Text.h"
#include "ui_frmElegxos.h"
#include "WindowParts.h"

#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QShortcut>

namespace veskora {

namespace {

/// They differ in shape too.
constexpr const char *signs[] = {"fault", "warning", "note", "good"};

QIcon signOf(Severity severity)
{
    const auto file =
        QString(":/icons/check_%1.svg").arg(signs[static_cast<std::size_t>(severity)]);
    QIcon sign(file);
    sign.addFile(file, {}, QIcon::Selected); // in its own colours there too
    return sign;
}

} // namespace

frmElegxos::frmElegxos(QWidget *parent)
    : QWidget(parent, Qt::Dialog), ui_(std::make_unique<Ui::frmElegxos>())
{
    ui_->setupUi(this);
    setCaptions();
    connectParts();
    pressButtonsByEnter(this);
    ui_->Splitter->setStretchFactor(0, 3);
    ui_->Splitter->setStretchFactor(1, 2);
    constexpr QSize least(360, 320), usual(420, 500); // logical pixels
    setMinimumSize(minimumSizeHint().expandedTo(least));
    resizeToScreen(this, usual);
}

frmElegxos::~frmElegxos() = default;

void frmElegxos::setCaptions()
{
    setWindowTitle(applicationName() + " - " + qtText(Metafrasi(1618, "Check of the analysis")));
    ui_->Findings->setAccessibleName(qtText(Metafrasi(1619, "Findings")));
    ui_->Explanation->setAccessibleName(qtText(Metafrasi(1620, "Explanation")));
    ui_->Refresh->setText(qtText(Metafrasi(1621, "Refresh")));
    ui_->Copy->setText(qtText(Metafrasi(1622, "Copy")));
    ui_->SaveText->setText(qtText(Metafrasi(1623, "Save as text")));
    ui_->ShowHelp->setText(qtText(Metafrasi(33, "Help")));
    assignDialogMnemonics(this);
}

void frmElegxos::connectParts()
{
    connect(ui_->Findings, &QListWidget::currentRowChanged, this, &frmElegxos::pick);
    // The picture may have been made anew since.
    connect(ui_->Findings, &QListWidget::itemClicked, this, &frmElegxos::pick);
    connect(ui_->Findings, &QListWidget::itemActivated, this, &frmElegxos::pick);
    connect(ui_->Refresh, &QPushButton::clicked, this, &frmElegxos::refreshWanted);
    connect(ui_->Copy, &QPushButton::clicked, this, &frmElegxos::copy);
    connect(ui_->SaveText, &QPushButton::clicked, this, &frmElegxos::save);
    connect(ui_->ShowHelp, &QPushButton::clicked, this, &frmElegxos::helpWanted);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    lookOften(this, &frmElegxos::lookAtModel);
}

void frmElegxos::refresh()
{
    auto check = std::make_unique<Check>();
    check->findings = checkModel();
    check->document = checkText(check->findings);
    {
        const QSignalBlocker quiet(ui_->Findings); // the first is picked below
        ui_->Findings->clear();
        for (const Finding &finding : check->findings) {
            const FindingText &text = check->texts.emplace_back(textOf(finding));
            new QListWidgetItem(signOf(finding.severity),
                                qtText(textOf(finding.severity) + ": " + text.title),
                                ui_->Findings);
        }
        ui_->Findings->setCurrentRow(0);
    }
    check_ = std::move(check);
    ui_->Findings->setFocus();
    pick();
}

void frmElegxos::lookAtModel()
{
    if (!check_->moment.isOfModel())
        ui_->Outdated->setText(qtText(
            Metafrasi(1624, "The model has changed since this check. Refresh checks it anew.")));
    else if (!check_->moment.isOfResults())
        ui_->Outdated->setText(qtText(
            Metafrasi(1625, "The model has been analyzed since this check. Refresh checks it "
                            "anew.")));
    else
        return ui_->Outdated->hide();
    ui_->Outdated->show();
}

void frmElegxos::pick()
{
    lookAtModel();
    const auto row = static_cast<std::size_t>(ui_->Findings->currentRow());
    if (row >= check_->findings.size())
        return;
    ui_->Explanation->setPlainText(qtText(check_->texts[row].explanation));
    if (check_->moment.isOfModel())
        emit picked(check_->findings[row]);
}

void frmElegxos::copy()
{
    QApplication::clipboard()->setText(QString::fromStdString(check_->document));
}

void frmElegxos::save()
{
    const BoxOwner owner(this);
    if (const std::string path = saveReport(check_->document, check_->moment.path, "_check");
        !path.empty())
        Grammi_Log(Metafrasi(1642, "Text file:") + " " + path, logColour::black);
}

/// What was shown on the canvas goes with the window.
void frmElegxos::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    desktop().redraw();
}

} // namespace veskora

#include "moc_frmElegxos.cpp"
