// The window with a changed model. For each order it forks a child that does one save, in which a
// system call fails or kills it, and that tells what it told its user.
//   veskora_save_session FOLDER    the model is FOLDER/model.vsk
// Orders on standard input: KIND FAULT TURN TARGET, TURN 0 for no fault; "kinds" lists the kinds.
// Answers: a line of JSON from the child where it lives, and one about it. Whatever takes more than
// a minute ends.

#include "Anafora.h"
#include "Application.h"
#include "Batch.h"
#include "DrivenWindow.h"
#include "ExportFlexGrid.h"
#include "FaultyCalls.h"
#include "Files.h"
#include "frmCalculation.h"
#include "frmSteps.h"
#include "frmSXEDIASI.h"
#include "frmWelcome.h"
#include "Functions.h"
#include "Metablites.h"
#include "ModelText.h"
#include "RecentFiles.h"
#include "ResultGrid.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>

#include <functional>
#include <iostream>
#include <map>
#include <new>
#include <sstream>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veskora {
namespace {

/// Says yes to everything, and keeps what is told.
class ToldDesktop : public UnattendedDesktop
{
public:
    using UnattendedDesktop::UnattendedDesktop;

    Answer message(const std::string &text, Icon, Buttons buttons) override
    {
        if (buttons != Buttons::ok)
            return Answer::yes;
        told.append(QString::fromStdString(text));
        return Answer::ok;
    }
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override
    {
        if (colour == logColourWord(logColour::red))
            told.append(QString::fromStdString(text));
        said.append(QString::fromStdString(text));
        UnattendedDesktop::insertLog(text, colour, bold);
    }
    std::optional<std::string> askSaveFile(const FileQuestion &) override { return target; }

    std::string target;
    QJsonArray told; ///< boxes, and what is red in the log
    QJsonArray said; ///< the log
};

constexpr unsigned limit = 60; // seconds

class Session
{
public:
    Session(ToldDesktop &desktop, const QString &folder)
        : desktop_(desktop), folder_(folder), window_(desktop, folder + "/model.vsk")
    {
        window_.trigger("mnuEPILISIitem");
        Anafora = reportOf([](const ReportSection &) { return true; });
        for (int group = 1; group <= 2; ++group)
            Omades(group, group::E) = 2; // shorter text, so that all behind it stands elsewhere
        record_ = new (::mmap(nullptr, sizeof(CallRecord), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0)) CallRecord;
        (void)desktop.writeSettings();
        window_.keepJournal();
    }

    void serve()
    {
        std::string order;
        while (std::getline(std::cin, order)) {
            std::istringstream words(order);
            std::string kind, fault, target;
            int turn = 0;
            words >> kind >> fault >> turn >> target;
            if (kind == "kinds") {
                for (const auto &[name, save] : saves_)
                    std::cout << name << ' ';
                std::cout << std::endl;
                continue;
            }
            ::alarm(2 * limit); // the child ends first
            new (record_) CallRecord;
            record_->fault = static_cast<std::size_t>(
                std::ranges::find(callFaults, std::string_view(fault)) - callFaults.begin());
            record_->turn = turn;
            desktop_.target = target;
            const pid_t child = ::fork();
            if (child == 0)
                save(kind);
            tellOf(child);
        }
    }

private:
    [[noreturn]] void save(const std::string &kind)
    {
        ::alarm(limit);
        const auto &run = saves_.at(kind);
        strikeCalls(folder_.toStdString(), *record_);
        if (kind == "journal")
            Komboi(2, node::Fx) += 1;
        if (kind == "recovery")
            Onoma_Arxeiou = (folder_ + "/gone/model.vsk").toStdString(); // nor can it be saved
        if (kind == "model-link")
            Onoma_Arxeiou = (folder_ + "/link.vsk").toStdString();
        const std::string before = modelText();
        const QJsonArray stateBefore = state();
        armCalls(true);
        run();
        armCalls(false);
        const QJsonObject answer = {{"told", desktop_.told},
                                    {"said", desktop_.said},
                                    {"model", QString::fromStdString(before)},
                                    {"kept", modelText() == before},
                                    {"before", stateBefore},
                                    {"after", state()},
                                    {"saved", Idio_Me_To_Arxeio()}};
        tell(answer);
        std::exit(0);
    }

    /// What the program takes for the model's file.
    QJsonArray state()
    {
        return {QString::fromStdString(Onoma_Arxeiou), window_.window().windowTitle(),
                knownFileSum ? QString::number(*knownFileSum) : QString()};
    }

    static void tell(const QJsonObject &answer)
    {
        std::cout << QJsonDocument(answer).toJson(QJsonDocument::Compact).constData() << std::endl;
    }

    void tellOf(pid_t child)
    {
        int status = 0;
        ::waitpid(child, &status, 0);
        QJsonObject calls;
        for (std::size_t i = 0; i < callFaults.size(); ++i)
            calls[QString::fromUtf8(callFaults[i])] = record_->calls[i].load();
        QJsonArray made;
        for (std::size_t i = 0; i < record_->madeCount; ++i) {
            const MadeCall &call = record_->made.at(i);
            made.append(
                QJsonArray{callName(call.number), call.file.data(), call.to.data(), call.writes});
        }
        const QJsonObject answer = {{"status", status},
                                    {"struck", static_cast<int>(record_->struck)},
                                    {"made", made},
                                    {"calls", calls}};
        tell(answer);
    }

    void press(QWidget &form, const char *button)
    {
        form.findChild<QPushButton *>(button)->click();
    }

    void pressInSteps(const char *button)
    {
        window_.trigger("mnuVIMATA_ANALYSIS_item");
        press(*window_.find<frmSteps>(), button);
    }

    ToldDesktop &desktop_;
    const QString folder_;
    DrivenWindow window_;
    CallRecord *record_ = nullptr;

    const std::map<std::string, std::function<void()>> saves_ = {
        {"model", [this] { window_.trigger("mnuAPOTHIKEFSIitem"); }},
        {"model-in-place", [this] { window_.trigger("mnuAPOTHIKEFSIitem"); }},
        {"model-link", [this] { window_.trigger("mnuAPOTHIKEFSIitem"); }},
        {"model-as", [this] { window_.trigger("mnuAPOTHIKEFSIOSitem"); }},
        {"recovery", [this] { window_.trigger("mnuNEOitem"); }},
        {"journal", [this] { window_.keepJournal(); }},
        {"options",
         [this] {
             frmSXEDIASI form(nullptr);
             press(form, "SSCommand13");
         }},
        {"language",
         [this] {
             frmWelcome form;
             auto *languages = form.findChild<QComboBox *>("Combo1");
             languages->setCurrentIndex(languages->findText("German"));
             press(form, "Command1");
         }},
        {"recent",
         [this] {
             rememberFile(folder_.toStdString() + "/another.vsk");
             QCoreApplication::processEvents(); // it is written when there is time
         }},
        {"start",
         [this] {
             ToldDesktop another(folder_, 1); // which has not read the settings yet
             (void)another.setting("Startup", "Version", "");
             another.storeSetting("Startup", "Version", "0");
             desktop_.told.append(QString::fromStdString(another.writeSettings()));
         }},
        {"report", [] { Apothikefsi_Anaforas(Onoma_Arxeiou); }},
        {"table", [] { (void)saveTable(Anafora, Onoma_Arxeiou, "_values"); }},
        {"workbook",
         [] {
             const ResultGrid grid(displacementCells(RegionalNumbers()), std::vector<int>(8, 0));
             (void)ExportFlexGrid(grid, "Node displacements", Onoma_Arxeiou, {"Warned."});
         }},
        {"bitmap", [this] { window_.trigger("mnuEIKONA_arxeio_bmp_item"); }},
        {"picture-svg", [this] { window_.trigger("mnuEIKONA_SVG_PDF_item"); }},
        {"picture-pdf", [this] { window_.trigger("mnuEIKONA_SVG_PDF_item"); }},
        {"calculation",
         [] {
             frmCalculation form(nullptr);
             form.accept();
         }},
        {"batch",
         [this] {
             std::ostringstream told;
             const std::string folder = folder_.toStdString();
             if (runBatch({"--out", folder + "/batch", "--csv", "--pictures=png", "--size",
                           "300x200", folder + "/model.vsk"},
                          told, told)
                 != 0)
                 desktop_.told.append(QString::fromStdString(told.str()));
         }},
        {"steps", [this] { pressInSteps("SaveHtml"); }},
        {"steps-pdf", [this] { pressInSteps("SavePdf"); }},
    };
};

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    const veskora::Application application(argc, argv);
    const QString folder = QApplication::arguments().value(1);
    ::alarm(veskora::limit);
    veskora::resetStore();
    veskora::ToldDesktop desktop(folder, 1);
    veskora::setDesktop(&desktop);
    veskora::Session(desktop, folder).serve();
}
