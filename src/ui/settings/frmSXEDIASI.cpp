#include "frmSXEDIASI.h"

#include "ColourSwatch.h"
#include "DirectionButton.h"
#include "frmXROMATA.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Mnemonics.h"
#include "NumberField.h"
#include "Text.h"
#include "ui_frmSXEDIASI.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veskora {

namespace {

constexpr int generalTab = 0, modelTab = 1, diagramTab = 2;

bool isPositiveSingle(const QLineEdit *field)
{
    const std::optional<float> value = toSingle(typedNumber(field));
    return value && *value > 0;
}

bool isWholeNumber(const QLineEdit *field)
{
    const double value = typedNumber(field);
    return value >= 0 && value == std::floor(value);
}

bool isShortEnough(const QLineEdit *field)
{
    return typedNumber(field) <= maxDecimals;
}

/// Of a typed number, and where it is refused.
struct Test
{
    bool passed;
    QLineEdit *field;
    QCheckBox *governor; ///< enables the field; none where it is always enabled
    int tab;
    std::string refusal;
};

} // namespace

frmSXEDIASI::frmSXEDIASI(QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSXEDIASI>())
{
    ui_->setupUi(this);
    setWindowModality(Qt::WindowModal);
    // The names of control arrays, which are no identifiers.
    for (QToolButton *label : {ui_->Label1_0, ui_->Label1_1, ui_->Label1_2, ui_->Label1_3,
                               ui_->Label1_4, ui_->Label1_5, ui_->Label1_6, ui_->Label1_7})
        label->setObjectName(label->objectName().replace('_', '(') + ')');
    ui_->Command3->setPictures(":/icons/direction_M_on.svg", ":/icons/direction_M_off.svg");
    for (DirectionButton *button : {ui_->Command1, ui_->Command2})
        button->setPictures(":/icons/direction_on.svg", ":/icons/direction_off.svg");
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        takeDecimalComma(field);
        field->setMinimumWidth(field->fontMetrics().horizontalAdvance("1234.567 "));
    }
    setCaptions();
    bindControls();
    connectControls();
    showAll(currentValue);
}

frmSXEDIASI::~frmSXEDIASI() = default;

void frmSXEDIASI::setCaptions()
{
    const auto caption = [](auto *control, const std::string &text) {
        control->setText(qtText(text));
    };
    const auto title = [](QGroupBox *frame, const std::string &text) {
        frame->setTitle(qtText(text));
    };
    setWindowTitle(qtText(Metafrasi(1501, "View options")));
    ui_->SSTab1->setTabText(generalTab, qtText(Metafrasi(1502, "General")));
    ui_->SSTab1->setTabText(modelTab, qtText(Metafrasi(1503, "Model")));

    title(ui_->Frame2, Metafrasi(1504, "General"));
    caption(ui_->Check1, Metafrasi(1505, "Axes"));
    caption(ui_->Check2, Metafrasi(1506, "Grid"));
    caption(ui_->Label20, Metafrasi(1507, "every"));
    caption(ui_->Label21, Metafrasi(1508, "units"));
    title(ui_->Frame12, Metafrasi(1509, "Graphical definition of elements"));
    caption(ui_->Text9, Metafrasi(1510, "While moving pointer for the definition of a new element "
                                        "on screen, show:"));
    caption(ui_->CheckApol, Metafrasi(1511, "Absolute coordinates"));
    caption(ui_->CheckSxet, Metafrasi(1512, "Relative coordinates (relatively to start node i)"));
    title(ui_->Frame5, Metafrasi(1513, "Colors"));
    caption(ui_->Label1_0, Metafrasi(1514, "Background"));
    caption(ui_->Label1_1, Metafrasi(1516, "Axes"));
    caption(ui_->Label1_2, Metafrasi(1517, "Grid"));
    for (ColourSwatch *label : findChildren<ColourSwatch *>())
        label->setToolTip(qtText(Metafrasi(1515, "Click to change this color")));

    title(ui_->Frame1, Metafrasi(1518, "Nodes"));
    caption(ui_->Check4, Metafrasi(1519, "Nodes"));
    caption(ui_->Check5, Metafrasi(1520, "Numbering"));
    caption(ui_->SSOption1, Metafrasi(1521, "Graphically"));
    caption(ui_->SSOption2, Metafrasi(1522, "Symbolically (x/o)"));
    caption(ui_->Check6, Metafrasi(1523, "Constraints"));
    caption(ui_->Check7, Metafrasi(1524, "Coordinates"));
    caption(ui_->Check3, Metafrasi(1573, "Springs"));
    title(ui_->Frame3, Metafrasi(1525, "Elements"));
    caption(ui_->Check8, Metafrasi(1526, "Elements"));
    caption(ui_->Check9, Metafrasi(1527, "Numbering"));
    caption(ui_->Check10, Metafrasi(1528, "Releases"));
    caption(ui_->Check11, Metafrasi(1529, "E,A,I Groups"));
    caption(ui_->Check12, Metafrasi(1530, "Lengths"));
    title(ui_->Frame4, Metafrasi(1531, "Nodal loads"));
    caption(ui_->Check13, Metafrasi(1532, "Vectors"));
    caption(ui_->Check14, Metafrasi(1533, "Values"));
    title(ui_->Frame9, Metafrasi(1534, "Elemental loads"));
    caption(ui_->Check19, Metafrasi(1535, "Vectors"));
    caption(ui_->Check18, Metafrasi(1536, "Values"));
    title(ui_->Frame10, Metafrasi(1537, "Colors"));
    caption(ui_->Label1_3, Metafrasi(1538, "Nodes"));
    caption(ui_->Label1_4, Metafrasi(1539, "Elements"));
    caption(ui_->Label1_5, Metafrasi(1540, "Nodal loads"));
    caption(ui_->Label1_6, Metafrasi(1541, "Elemental loads"));
    caption(ui_->Label1_7, Metafrasi(1542, "Deformation"));
    title(ui_->Frame13, Metafrasi(1559, "Deformation"));

    caption(ui_->Label17, Metafrasi(1543, "M Diagrams"));
    caption(ui_->Label18, Metafrasi(1544, "Q Diagrams"));
    caption(ui_->Label19, Metafrasi(1545, "N Diagrams"));
    for (QLabel *units : {ui_->LabelUnitsM, ui_->LabelUnitsQ, ui_->LabelUnitsN, ui_->LabelUnits8})
        caption(units, Metafrasi(1550, "units"));
    for (QCheckBox *values : {ui_->Check15, ui_->Check16, ui_->Check17})
        caption(values, Metafrasi(1551, "Values"));
    for (QLabel *decimals : {ui_->LabelDecimalsM, ui_->LabelDecimalsQ, ui_->LabelDecimalsN})
        caption(decimals, Metafrasi(1552, "Dec. places"));
    for (QLabel *direction : {ui_->LabelDirectionM, ui_->LabelDirectionQ, ui_->LabelDirectionN})
        caption(direction, Metafrasi(1553, "Drawing direction:"));
    title(ui_->Frame11, Metafrasi(1554, "Colors"));
    title(ui_->Frame7, Metafrasi(1555, "[M] Diagram"));
    title(ui_->Frame8, Metafrasi(1556, "[Q] Diagram"));
    title(ui_->Frame6, Metafrasi(1557, "[N] Diagram"));
    for (QLabel *positive : {ui_->LabelPositiveQ, ui_->LabelPositiveN})
        caption(positive, Metafrasi(1558, "Positive values:"));
    for (DirectionButton *button : findChildren<DirectionButton *>()) {
        button->setToolTip(qtText(Metafrasi(1560, "Click to change the drawing direction")));
        button->setAccessibleName(ui_->LabelDirectionM->text());
    }

    caption(ui_->SSCommand13, Metafrasi(1546, "Default"));
    ui_->SSCommand13->setToolTip(
        qtText(Metafrasi(1547, "Set current options as default for the program")));
    caption(ui_->SSCommand14, Metafrasi(1548, "Restore"));
    ui_->SSCommand14->setToolTip(qtText(Metafrasi(1549, "Restore program's initial options")));
    caption(ui_->SSCommand5, Metafrasi(2002, "OK"));
    caption(ui_->SSCommand1, Metafrasi(2003, "Cancel"));
    caption(ui_->SSCommand3, Metafrasi(2004, "Apply"));

    // In sight at one time are a page and the buttons below.
    assignDialogMnemonics(ui_->buttonRow);
    QStringList taken;
    for (const QPushButton *button : ui_->buttonRow->findChildren<QPushButton *>())
        taken << button->text();
    for (QWidget *page : {ui_->tabGeneral, ui_->tabModel, ui_->tabDiagrams})
        assignDialogMnemonics(page, taken);
}

void frmSXEDIASI::bindControls()
{
    bind(&nai_aksones, ui_->Check1);
    bind(&nai_grid, ui_->Check2);
    bind(&kannab, ui_->Text7);
    bind(&xroma_background, ui_->Label1_0);
    bind(&xroma_aksonon, ui_->Label1_1);
    bind(&xroma_grid, ui_->Label1_2);
    bind(&Nai_Apolites_Sint, ui_->CheckApol);
    bind(&Nai_Sxetikes_Sint, ui_->CheckSxet);

    bind(&nai_komboi, ui_->Check4);
    bind(&nai_arithmisi_kombon, ui_->Check5);
    bind(&nai_desmefseis, ui_->Check6);
    bind(&nai_graf_stir, ui_->SSOption1);
    bind(&nai_sint_kombon, ui_->Check7);
    bind(&nai_springs, ui_->Check3);
    bind(&nai_stoixeia, ui_->Check8);
    bind(&nai_arithmisi_stoixeion, ui_->Check9);
    bind(&nai_eleftheroseis, ui_->Check10);
    bind(&nai_omades, ui_->Check11);
    bind(&nai_miki, ui_->Check12);
    bind(&nai_fortiseis_si, ui_->Check13);
    bind(&nai_times_fortiseon_si, ui_->Check14);
    bind(&nai_fortiseis_om, ui_->Check19);
    bind(&nai_times_fortiseon_om, ui_->Check18);
    bind(&xroma_kombon, ui_->Label1_3);
    bind(&xroma_stoixeion, ui_->Label1_4);
    bind(&xroma_sigkentromenon, ui_->Label1_5);
    bind(&xroma_omoiomorfon, ui_->Label1_6);
    bind(&xroma_paramorfosis, ui_->Label1_7);
    bind(&Ena_cm_posa_m_epi_1000, ui_->Text8);

    bind(&Ena_cm_posa_KNm_M, ui_->Text1);
    bind(&nai_times_M, ui_->Check15);
    bind(&dekadika_M, ui_->Text4);
    bind(&M_sin_Tension, ui_->Command3);
    bind(&Ena_cm_posa_KN_Q, ui_->Text2);
    bind(&nai_times_Q, ui_->Check16);
    bind(&dekadika_Q, ui_->Text5);
    bind(&Q_sin_Ina, ui_->Command1);
    bind(&Ena_cm_posa_KN_N, ui_->Text3);
    bind(&nai_times_N, ui_->Check17);
    bind(&dekadika_N, ui_->Text6);
    bind(&N_sin_Ina, ui_->Command2);
    bind(&xroma_M, ui_->Label17);
    bind(&xroma_Q, ui_->Label18);
    bind(&xroma_N, ui_->Label19);
}

void frmSXEDIASI::bind(StoreVariable setting, QWidget *control)
{
    bindings_.push_back({&*std::ranges::find(settings, setting, &Setting::value), control});
}

void frmSXEDIASI::connectControls()
{
    const auto govern = [](QCheckBox *check, std::initializer_list<QWidget *> governed) {
        for (QWidget *control : governed) {
            connect(check, &QCheckBox::toggled, control, &QWidget::setEnabled);
            control->setEnabled(check->isChecked());
        }
    };
    govern(ui_->Check2, {ui_->Text7});
    govern(ui_->Check6, {ui_->SSOption1, ui_->SSOption2});
    govern(ui_->Check15, {ui_->Text4});
    govern(ui_->Check16, {ui_->Text5});
    govern(ui_->Check17, {ui_->Text6});

    for (ColourSwatch *swatch : findChildren<ColourSwatch *>())
        connect(swatch, &ColourSwatch::clicked, this, [this, swatch] {
            const double colour = Epilogi_Xromatos(swatch->colour(), this);
            if (colour != -1)
                swatch->setColour(colour);
        });

    connect(ui_->SSCommand13, &QPushButton::clicked, this, &frmSXEDIASI::storeDefaults);
    connect(ui_->SSCommand14, &QPushButton::clicked, this, [this] { showAll(standardValue); });
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->SSCommand3, &QPushButton::clicked, this, &frmSXEDIASI::apply);
    connect(ui_->SSCommand5, &QPushButton::clicked, this, [this] {
        if (apply())
            accept();
    });
}

void frmSXEDIASI::showValue(const Binding &binding, const SettingValue &value)
{
    if (const auto *on = std::get_if<bool>(&value)) {
        static_cast<QAbstractButton *>(binding.control)->setChecked(*on);
        if (binding.control == ui_->SSOption1)
            ui_->SSOption2->setChecked(!*on);
    } else if (const auto *colour = std::get_if<double>(&value)) {
        static_cast<ColourSwatch *>(binding.control)->setColour(*colour);
    } else {
        auto *field = static_cast<QLineEdit *>(binding.control);
        if (const auto *number = std::get_if<float>(&value))
            field->setText(qtText(numberText(*number)));
        else
            field->setText(QString::number(std::get<std::int16_t>(value)));
    }
}

void frmSXEDIASI::showAll(SettingValue (*valueOf)(const Setting &))
{
    for (const Binding &binding : bindings_)
        showValue(binding, valueOf(*binding.setting));
}

/// Of a field that has passed the tests.
SettingValue frmSXEDIASI::shown(const Binding &binding) const
{
    if (std::holds_alternative<bool *>(binding.setting->value))
        return static_cast<QAbstractButton *>(binding.control)->isChecked();
    if (std::holds_alternative<double *>(binding.setting->value))
        return static_cast<ColourSwatch *>(binding.control)->colour();
    const double number = typedNumber(static_cast<QLineEdit *>(binding.control));
    if (std::holds_alternative<std::int16_t *>(binding.setting->value))
        return static_cast<std::int16_t>(number);
    return static_cast<float>(number);
}

void frmSXEDIASI::Elegxos_An_Einai_OK(bool &ok)
{
    const Ui::frmSXEDIASI &ui = *ui_;
    const std::array<Test, 11> tests = {{
        {isPositiveSingle(ui.Text1), ui.Text1, nullptr, diagramTab,
         Metafrasi(1562, "The value given for the equivalence cm - M units is unacceptable.")},
        {isPositiveSingle(ui.Text2), ui.Text2, nullptr, diagramTab,
         Metafrasi(1563, "The value given for the equivalence cm - Q units is unacceptable.")},
        {isPositiveSingle(ui.Text3), ui.Text3, nullptr, diagramTab,
         Metafrasi(1564, "The value given for the equivalence cm - N units is unacceptable.")},
        {isPositiveSingle(ui.Text8), ui.Text8, nullptr, modelTab,
         Metafrasi(1565, "The value given for the equivalence cm - D units is unacceptable.")},
        {isWholeNumber(ui.Text4), ui.Text4, ui.Check15, diagramTab,
         Metafrasi(1566, "The value given for the decimal places (M Diagram) is unacceptable.")},
        {isShortEnough(ui.Text4), ui.Text4, ui.Check15, diagramTab,
         Metafrasi(1567, "The maximum number for decimal places is 13 (M Diagram).")},
        {isWholeNumber(ui.Text5), ui.Text5, ui.Check16, diagramTab,
         Metafrasi(1568, "The value given for the decimal places (Q Diagram) is unacceptable.")},
        {isShortEnough(ui.Text5), ui.Text5, ui.Check16, diagramTab,
         Metafrasi(1569, "The maximum number for decimal places is 13 (Q Diagram).")},
        {isWholeNumber(ui.Text6), ui.Text6, ui.Check17, diagramTab,
         Metafrasi(1570, "The value given for the decimal places (N Diagram) is unacceptable.")},
        {isShortEnough(ui.Text6), ui.Text6, ui.Check17, diagramTab,
         Metafrasi(1571, "The maximum number for decimal places is 13 (N Diagram).")},
        {isPositiveSingle(ui.Text7), ui.Text7, ui.Check2, generalTab,
         Metafrasi(1572, "The value given for grid is unacceptable.")},
    }};
    const QLineEdit *cut = fieldCutAtSeparator(this);
    const auto *failed = cut != nullptr ? std::ranges::find(tests, cut, &Test::field)
                                        : std::ranges::find(tests, false, &Test::passed);
    ok = failed == tests.end();
    if (ok)
        return;
    showRefusal(cut != nullptr ? cutAtSeparator() : failed->refusal);
    ui_->SSTab1->setCurrentIndex(failed->tab);
    failed->field->selectAll();
    if (failed->field->isEnabled())
        failed->field->setFocus();
    else
        failed->governor->setFocus();
}

bool frmSXEDIASI::apply()
{
    bool ok = false;
    Elegxos_An_Einai_OK(ok);
    if (!ok)
        return false;
    for (const Binding &binding : bindings_)
        takeOver(*binding.setting, shown(binding));
    emit applied();
    return true;
}

void frmSXEDIASI::storeDefaults()
{
    bool ok = false;
    Elegxos_An_Einai_OK(ok);
    if (!ok)
        return;
    for (const Binding &binding : bindings_)
        storeAsDefault(*binding.setting, shown(binding));
    if (writeSettingsOrTell())
        Grammi_Log(Metafrasi(1650, "The options shown are the defaults of the program now."),
                   logColour::black);
}

} // namespace veskora
