// The calculation report as PDF, read by poppler's programs.

#include "CalculationReport.h"
#include "epilisi.h"
#include "Files.h"
#include "InkKanvas.h"
#include "Metablites.h"
#include "Models.h"
#include "PageFlow.h"
#include "QtDrawings.h"
#include "RecordingKanvas.h"
#include "Registry.h"
#include "ReportPicture.h"
#include "ScriptedDesktop.h"
#include "SystemPrograms.h"
#include "Version.h"

#include <gmock/gmock.h>

#include <sstream>

namespace veskora {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string poppler(const char *program, const QStringList &arguments)
{
    return output(program, arguments).toStdString();
}

qsizetype count(const std::string &text, const char *word)
{
    return QString::fromStdString(text).count(word);
}

class CalculationReport : public StoreTest
{
protected:
    /// What the model in the store has on paper.
    std::string textOfReport(const CalculationOptions &options = {})
    {
        write(path("r.pdf"),
              pdfOf(calculationDocument(options), Paper::A4, [](int, int) { return true; }));
        return poppler("pdftotext", {"-layout", QString::fromStdString(path("r.pdf")), "-"});
    }
    /// The whole text of the report of @p model, whose pages are all vectors and of that size.
    std::string report(const std::string &model, const std::string &paper, bool fails = false)
    {
        std::ostringstream out, err;
        EXPECT_EQ(runBatch({"--pdf", "--check", "--paper", paper, "--title", "Hall 7", "--out",
                            path(""), model},
                           out, err, qtDrawings()),
                  fails ? batchStatus::someFailed : batchStatus::allAnalysed)
            << err.str();
        setDesktop(&desktop);
        const QString pdf = QString::fromStdString(
            path(std::filesystem::path(model).stem().string() + "_report.pdf"));
        EXPECT_EQ(count(poppler("pdfimages", {"-list", pdf}), "\n"), 2) << "images";
        const std::string fonts = poppler("pdffonts", {pdf});
        EXPECT_EQ(count(fonts, " yes no  yes"), count(fonts, "\n") - 2) << fonts;
        EXPECT_THAT(poppler("pdfinfo", {pdf}),
                    HasSubstr(paper == "A4" ? "595 x 842 pts" : "612 x 792 pts"));
        return poppler("pdftotext", {"-layout", pdf, "-"});
    }
};

TEST_F(CalculationReport, HasModelDiagramsResultsAndCheckOnPagesOfTheSizeAsked)
{
    for (const char *paper : {"A4", "Letter"}) {
        const std::string text = report(EXAMPLES "/gable_frame.vsk", paper);
        const auto pages = count(text, "\f");
        for (const std::string said :
             {"Hall 7", "gable_frame.vsk", "2.4 Elemental loads",
              "between the ends: 132.9, element 3", " in the model's unit of length",
              "1 cm of the diagram is 200", "0.00760264", "-1266.39",
              "In order: The structure cannot move freely"})
            EXPECT_THAT(text, HasSubstr(said));
        EXPECT_THAT(text, HasSubstr(std::string("Kalvorn Veskora ML ") + programVersion));
        EXPECT_THAT(text, testing::ContainsRegex("max\\. +132.945 +3 +2.81044"));
        EXPECT_THAT(text, testing::ContainsRegex("3.3 +Axial force N +4\n"));
        for (int page = 1; page <= pages; ++page)
            EXPECT_EQ(
                count(text, QString("Page %1 of %2").arg(page).arg(pages).toUtf8().constData()), 1);
    }
    const std::string column = report(EXAMPLES "/verification/V20b.96.vsk", "A4");
    EXPECT_EQ(count(column, "\fElement "), 3) << "the header comes again on each page";
}

TEST_F(CalculationReport, OfAModelThatCannotBeAnalysedSaysSoAndHasTheModelAlone)
{
    buildModel("G 1 1 1; N 0 0; N 0 4; E 1 2 1");
    std::string model = path("loose.vsk");
    ASSERT_TRUE(Apothikefsi_Arxeiou(model, true));
    const std::string text = report(model, "A4", true);
    EXPECT_THAT(text, HasSubstr("There are no results"));
    EXPECT_THAT(text, HasSubstr("2.3 Elements"));
    EXPECT_THAT(text, Not(HasSubstr("Axial force")));
}

TEST_F(CalculationReport, LeavesTheStoreAsItWasAndNothingInTheLog)
{
    std::string model = EXAMPLES "/three_bay_four_storey.vsk";
    ASSERT_TRUE(Anagnosi_Arxeiou(model));
    Epilisi();
    Katastasi_Provolis = view::Q;
    nai_times_M = false;
    dekadika_M = 9; // too many for its values
    roundingReportedFor = {view::N, 2};
    denseGridReported = true;
    gridPosition = 7;
    desktop.log.clear();
    const auto state = [] {
        std::vector<SettingValue> values;
        for (const Setting &setting : settings)
            values.push_back(currentValue(setting));
        return std::tuple(values, currentView(), Katastasi_Provolis, roundingReportedFor,
                          cutReportedFor, denseGridReported, gridPosition, Allagi_Montelou);
    };
    const auto before = state();
    const std::string text = textOfReport({.withCheck = true});
    EXPECT_TRUE(state() == before);
    EXPECT_TRUE(desktop.log.empty());
    EXPECT_THAT(text, HasSubstr("Values beyond this limit are shown as 0"));
    EXPECT_EQ(pdfOf(calculationDocument({}), Paper::A4, [](int, int) { return false; }), "");
}

TEST_F(CalculationReport, TellsOfValuesThatTheDecimalsHideAndOfOldResults)
{
    for (const auto &[load, said] :
         {std::pair{"3e9", "units: 2147.483647"}, // of displacements, with their six decimals
          {"3e-5", "smaller units: 0.0005"}}) {
        buildModel(std::string("G 2e8 .01 1e-4; N 0 0 xxx; N 0 4 ooo ") + load
                   + "; N 5 4; N 5 0 xxx; E 1 2 1; E 2 3 1; E 3 4 1");
        Epilisi();
        desktop.log.clear();
        const std::string text = textOfReport();
        EXPECT_THAT(text, HasSubstr(said));
        EXPECT_THAT(text, Not(HasSubstr("at the ends only")));
        EXPECT_TRUE(desktop.log.empty());
    }
    Allagi_Montelou = true;
    const std::string old = textOfReport();
    EXPECT_THAT(old, HasSubstr("at the ends only"));
    EXPECT_EQ(count(old, "The model has been changed since these results."),
              1 + 4 + 4 + 3); // first page, diagrams and pictures, tables
}

TEST_F(CalculationReport, APictureFillsItsPlaceBelowItsHeading)
{
    for (const char *name : {"gable_frame", "truss", "lateral_pile", "supports", "three_span_beam"})
        for (const std::int16_t shown : {view::model, view::M, view::Q, view::N, view::deformed}) {
            std::string model = EXAMPLES "/" + std::string(name) + ".vsk";
            ASSERT_TRUE(Anagnosi_Arxeiou(model));
            Epilisi();
            RecordingKanvas place;
            place.h = 10;
            InkKanvas ink(place);
            drawReportPicture(shown, ink);
            const QRectF covered = ink.finish(),
                         free(0, ink.noteBottom(), 20, 10 - ink.noteBottom());
            EXPECT_TRUE(free.contains(covered)) << name << shown;
            EXPECT_GT(std::max(covered.width() / free.width(), covered.height() / free.height()),
                      0.9)
                << name << shown;
        }
}

/// Of parts of height 1.
struct Parts : PrintedBlock
{
    Parts(std::size_t parts, bool heading, double header = 0)
        : parts_(parts), heading_(heading), header_(header)
    {}
    std::size_t parts() const override { return parts_; }
    double heightOf(std::size_t) const override { return 1; }
    double repeatedHeight() const override { return header_; }
    double spaceAbove() const override { return 0.5; }
    std::size_t partsToBegin() const override { return 3; }
    bool leadsOn() const override { return heading_; }
    void paint(QPainter &, double, std::size_t, std::size_t) const override {}
    std::size_t parts_;
    bool heading_;
    double header_;
};

TEST(PageFlow, KeepsHeadingsWithWhatTheyStandOverAndLeavesNoLoneRow)
{
    using Ends = std::vector<std::vector<std::size_t>>; // of the parts on each page
    for (const auto &[above, table, ends] : {std::tuple{4, 3, Ends{{4, 1, 3}}},
                                             {5, 3, {{5}, {1, 3}}},
                                             {1, 10, {{1, 1, 6}, {10}}},
                                             {1, 7, {{1, 1, 4}, {7}}},
                                             {2, 6, {{2, 1, 3}, {6}}},
                                             {25, 2, {{10}, {20}, {25, 1, 2}}}}) {
        std::vector<std::unique_ptr<PrintedBlock>> blocks;
        blocks.push_back(std::make_unique<Parts>(above, false));
        blocks.push_back(std::make_unique<Parts>(1, true));
        blocks.push_back(std::make_unique<Parts>(table, false, 1));
        Ends found;
        for (const Page &page : pagesOf(blocks, 10)) {
            found.emplace_back();
            for (const Placed &placed : page)
                found.back().push_back(placed.end);
        }
        EXPECT_EQ(found, ends) << above << " " << table;
    }
}

TEST(CalculationPaper, IsThatOfTheRegion)
{
    EXPECT_EQ(usualPaper(QLocale::Canada), Paper::letter);
    EXPECT_EQ(usualPaper(QLocale::Greece), Paper::A4);
}

} // namespace
} // namespace veskora
