#include "frmSXEDIASI.h"

#include "ColourSwatch.h"
#include "DirectionButton.h"
#include "frmXROMATA.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "NumberField.h"
#include "Text.h"
#include "ui_frmSXEDIASI.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veskora {

namespace {

/// What a typed number must be, and what is said where it is not.
struct Limit
{
    bool (*holds)(double typed);
    Phrase refusal;
};

bool isPositiveSingle(double typed)
{
    const std::optional<float> value = toSingle(typed);
    return value && *value > 0;
}

bool isWholeNumber(double typed)
{
    return typed >= 0 && typed == std::floor(typed);
}

bool isShortEnough(double typed)
{
    return typed <= maxDecimals;
}

const Setting &settingOf(StoreVariable variable)
{
    return *std::ranges::find(settings, variable, &Setting::value);
}

void showCaption(QWidget *control, const Phrase &caption)
{
    const bool isFrame = qobject_cast<QGroupBox *>(control) != nullptr;
    control->setProperty(isFrame ? "title" : "text", qtText(caption.text()));
}

} // namespace

/// A setting and the control that shows it.
struct frmSXEDIASI::Row
{
    StoreVariable setting;
    QWidget *control;
    std::optional<Phrase> caption = {}; ///< that of the control itself
    QCheckBox *governor = nullptr;      ///< enables the control
    std::vector<Limit> limits = {};     ///< of what is typed
    bool checkedAt = true;              ///< the value of a switch at which the control is checked
};

/// Typed numbers stand in the order in which they are tested.
std::vector<frmSXEDIASI::Row> frmSXEDIASI::rows() const
{
    const Ui::frmSXEDIASI &ui = *ui_;
    const auto number = [](StoreVariable setting, QLineEdit *field, QCheckBox *governor,
                           std::vector<Limit> limits) {
        return Row{setting, field, {}, governor, std::move(limits)};
    };
    return {
        number(
            &Ena_cm_posa_KNm_M, ui.Text1, nullptr,
            {{isPositiveSingle,
              Phrase{1562, "The value given for the equivalence cm - M units is unacceptable."}}}),
        number(
            &Ena_cm_posa_KN_Q, ui.Text2, nullptr,
            {{isPositiveSingle,
              Phrase{1563, "The value given for the equivalence cm - Q units is unacceptable."}}}),
        number(
            &Ena_cm_posa_KN_N, ui.Text3, nullptr,
            {{isPositiveSingle,
              Phrase{1564, "The value given for the equivalence cm - N units is unacceptable."}}}),
        number(
            &Ena_cm_posa_m_epi_1000, ui.Text8, nullptr,
            {{isPositiveSingle,
              Phrase{1565, "The value given for the equivalence cm - D units is unacceptable."}}}),
        number(
            &dekadika_M, ui.Text4, ui.Check15,
            {{isWholeNumber,
              Phrase{1566, "The value given for the decimal places (M Diagram) is unacceptable."}},
             {isShortEnough,
              Phrase{1567, "The maximum number for decimal places is 13 (M Diagram)."}}}),
        number(
            &dekadika_Q, ui.Text5, ui.Check16,
            {{isWholeNumber,
              Phrase{1568, "The value given for the decimal places (Q Diagram) is unacceptable."}},
             {isShortEnough,
              Phrase{1569, "The maximum number for decimal places is 13 (Q Diagram)."}}}),
        number(
            &dekadika_N, ui.Text6, ui.Check17,
            {{isWholeNumber,
              Phrase{1570, "The value given for the decimal places (N Diagram) is unacceptable."}},
             {isShortEnough,
              Phrase{1571, "The maximum number for decimal places is 13 (N Diagram)."}}}),
        number(&kannab, ui.Text7, ui.Check2,
               {{isPositiveSingle, Phrase{1572, "The value given for grid is unacceptable."}}}),

        {&nai_aksones, ui.Check1, Phrase{1505, "Axes"}},
        {&nai_grid, ui.Check2, Phrase{1506, "Grid"}},
        {&Nai_Apolites_Sint, ui.CheckApol, Phrase{1511, "Absolute coordinates"}},
        {&Nai_Sxetikes_Sint, ui.CheckSxet,
         Phrase{1512, "Relative coordinates (relatively to start node i)"}},
        {&xroma_background, ui.Label1_0, Phrase{1514, "Background"}},
        {&xroma_aksonon, ui.Label1_1, Phrase{1516, "Axes"}},
        {&xroma_grid, ui.Label1_2, Phrase{1517, "Grid"}},

        {&nai_komboi, ui.Check4, Phrase{1519, "Nodes"}},
        {&nai_arithmisi_kombon, ui.Check5, Phrase{1520, "Numbering"}},
        {&nai_desmefseis, ui.Check6, Phrase{1523, "Constraints"}},
        {&nai_graf_stir, ui.SSOption1, Phrase{1521, "Graphically"}, ui.Check6},
        {&nai_graf_stir, ui.SSOption2, Phrase{1522, "Symbolically (x/o)"}, ui.Check6, {}, false},
        {&smallHeldRotation, ui.SmallHeldRotation, Phrase{1717, "Small symbol of held rotation"},
         ui.Check6},
        {&nai_sint_kombon, ui.Check7, Phrase{1524, "Coordinates"}},
        {&nai_springs, ui.Check3, Phrase{1573, "Springs"}},
        {&nai_stoixeia, ui.Check8, Phrase{1526, "Elements"}},
        {&nai_arithmisi_stoixeion, ui.Check9, Phrase{1527, "Numbering"}},
        {&nai_eleftheroseis, ui.Check10, Phrase{1528, "Releases"}},
        {&nai_omades, ui.Check11, Phrase{1529, "E,A,I Groups"}},
        {&nai_miki, ui.Check12, Phrase{1530, "Lengths"}},
        {&nai_fortiseis_si, ui.Check13, Phrase{1532, "Vectors"}},
        {&nai_times_fortiseon_si, ui.Check14, Phrase{1533, "Values"}},
        {&nai_fortiseis_om, ui.Check19, Phrase{1535, "Vectors"}},
        {&nai_times_fortiseon_om, ui.Check18, Phrase{1536, "Values"}},
        {&xroma_kombon, ui.Label1_3, Phrase{1538, "Nodes"}},
        {&xroma_stoixeion, ui.Label1_4, Phrase{1539, "Elements"}},
        {&xroma_sigkentromenon, ui.Label1_5, Phrase{1540, "Nodal loads"}},
        {&xroma_omoiomorfon, ui.Label1_6, Phrase{1541, "Elemental loads"}},
        {&xroma_paramorfosis, ui.Label1_7, Phrase{1542, "Deformation"}},

        {&nai_times_M, ui.Check15, Phrase{1551, "Values"}},
        {&nai_times_Q, ui.Check16, Phrase{1551, "Values"}},
        {&nai_times_N, ui.Check17, Phrase{1551, "Values"}},
        {&M_sin_Tension, ui.Command3},
        {&Q_sin_Ina, ui.Command1},
        {&N_sin_Ina, ui.Command2},
        {&xroma_M, ui.Label17, Phrase{1543, "M Diagrams"}},
        {&xroma_Q, ui.Label18, Phrase{1544, "Q Diagrams"}},
        {&xroma_N, ui.Label19, Phrase{1545, "N Diagrams"}},
    };
}

frmSXEDIASI::frmSXEDIASI(QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSXEDIASI>())
{
    ui_->setupUi(this);
    setWindowModality(Qt::WindowModal);
    rows_ = rows();
    equipControls();
    setCaptions();
    connectControls();
    showAll(currentValue);
}

frmSXEDIASI::~frmSXEDIASI() = default;

void frmSXEDIASI::equipControls()
{
    // "Label1(0)" to "Label1(7)" are one array; a form file can give no such names.
    for (ColourSwatch *label : findChildren<ColourSwatch *>(QRegularExpression("_")))
        label->setObjectName(label->objectName().replace('_', '(') + ')');
    ui_->Command3->setPictures(":/icons/direction_M_on.svg", ":/icons/direction_M_off.svg");
    for (DirectionButton *button : {ui_->Command1, ui_->Command2})
        button->setPictures(":/icons/direction_on.svg", ":/icons/direction_off.svg");
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        takeDecimalComma(field);
        field->setMinimumWidth(field->fontMetrics().horizontalAdvance("1234.567 "));
    }
}

void frmSXEDIASI::setCaptions()
{
    setWindowTitle(qtText(Metafrasi(1501, "View options")));
    for (const Row &row : rows_)
        if (row.caption)
            showCaption(row.control, *row.caption);
    const std::initializer_list<std::pair<QList<QWidget *>, Phrase>> ofNoSetting = {
        {{ui_->Frame2}, Phrase{1504, "General"}},
        {{ui_->Label20}, Phrase{1507, "every"}},
        {{ui_->Label21}, Phrase{1508, "units"}},
        {{ui_->Frame12}, Phrase{1509, "Graphical definition of elements"}},
        {{ui_->Text9},
         Phrase{1510, "While moving pointer for the definition of a new element on screen, show:"}},
        {{ui_->Frame5}, Phrase{1513, "Colors"}},
        {{ui_->Frame1}, Phrase{1518, "Nodes"}},
        {{ui_->Frame3}, Phrase{1525, "Elements"}},
        {{ui_->Frame4}, Phrase{1531, "Nodal loads"}},
        {{ui_->Frame9}, Phrase{1534, "Elemental loads"}},
        {{ui_->Frame10}, Phrase{1537, "Colors"}},
        {{ui_->Frame13}, Phrase{1559, "Deformation"}},
        {{ui_->LabelUnitsM, ui_->LabelUnitsQ, ui_->LabelUnitsN, ui_->LabelUnits8},
         Phrase{1550, "units"}},
        {{ui_->LabelDecimalsM, ui_->LabelDecimalsQ, ui_->LabelDecimalsN},
         Phrase{1552, "Dec. places"}},
        {{ui_->LabelDirectionM, ui_->LabelDirectionQ, ui_->LabelDirectionN},
         Phrase{1553, "Drawing direction:"}},
        {{ui_->Frame11}, Phrase{1554, "Colors"}},
        {{ui_->Frame7}, Phrase{1555, "[M] Diagram"}},
        {{ui_->Frame8}, Phrase{1556, "[Q] Diagram"}},
        {{ui_->Frame6}, Phrase{1557, "[N] Diagram"}},
        {{ui_->LabelPositiveQ, ui_->LabelPositiveN}, Phrase{1558, "Positive values:"}},
        {{ui_->SSCommand13}, Phrase{1546, "Default"}},
        {{ui_->SSCommand14}, Phrase{1548, "Restore"}},
        {{ui_->SSCommand5}, Phrase{2002, "OK"}},
        {{ui_->SSCommand1}, Phrase{2003, "Cancel"}},
        {{ui_->SSCommand3}, Phrase{2004, "Apply"}},
    };
    for (const auto &[controls, caption] : ofNoSetting)
        for (QWidget *control : controls)
            showCaption(control, caption);
    ui_->SSTab1->setTabText(0, qtText(Metafrasi(1502, "General")));
    ui_->SSTab1->setTabText(1, qtText(Metafrasi(1503, "Model")));

    for (ColourSwatch *label : findChildren<ColourSwatch *>())
        label->setToolTip(qtText(Metafrasi(1515, "Click to change this color")));
    for (DirectionButton *button : findChildren<DirectionButton *>()) {
        button->setToolTip(qtText(Metafrasi(1560, "Click to change the drawing direction")));
        button->setAccessibleName(ui_->LabelDirectionM->text());
    }
    ui_->SSCommand13->setToolTip(
        qtText(Metafrasi(1547, "Set current options as default for the program")));
    ui_->SSCommand14->setToolTip(qtText(Metafrasi(1549, "Restore program's initial options")));

    // In sight at one time are a page and the buttons below.
    assignDialogMnemonics(ui_->buttonRow);
    QStringList taken;
    for (const QPushButton *button : ui_->buttonRow->findChildren<QPushButton *>())
        taken << button->text();
    for (int tab = 0; tab < ui_->SSTab1->count(); ++tab)
        assignDialogMnemonics(ui_->SSTab1->widget(tab), taken);
}

void frmSXEDIASI::connectControls()
{
    for (const Row &row : rows_)
        if (row.governor != nullptr) {
            connect(row.governor, &QCheckBox::toggled, row.control, &QWidget::setEnabled);
            row.control->setEnabled(row.governor->isChecked());
        }

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

void frmSXEDIASI::showValue(const Row &row, const SettingValue &value)
{
    if (const auto *on = std::get_if<bool>(&value)) {
        static_cast<QAbstractButton *>(row.control)->setChecked(*on == row.checkedAt);
    } else if (const auto *colour = std::get_if<double>(&value)) {
        static_cast<ColourSwatch *>(row.control)->setColour(*colour);
    } else {
        auto *field = static_cast<QLineEdit *>(row.control);
        if (const auto *number = std::get_if<float>(&value))
            field->setText(qtText(numberText(*number)));
        else
            field->setText(QString::number(std::get<std::int16_t>(value)));
    }
}

void frmSXEDIASI::showAll(SettingValue (*valueOf)(const Setting &))
{
    for (const Row &row : rows_)
        showValue(row, valueOf(settingOf(row.setting)));
}

/// Of a field that has passed the tests.
SettingValue frmSXEDIASI::shown(const Row &row)
{
    if (std::holds_alternative<bool *>(row.setting))
        return static_cast<QAbstractButton *>(row.control)->isChecked() == row.checkedAt;
    if (std::holds_alternative<double *>(row.setting))
        return static_cast<ColourSwatch *>(row.control)->colour();
    const double number = typedNumber(static_cast<QLineEdit *>(row.control));
    if (std::holds_alternative<std::int16_t *>(row.setting))
        return static_cast<std::int16_t>(number);
    return static_cast<float>(number);
}

void frmSXEDIASI::Elegxos_An_Einai_OK(bool &ok)
{
    const QLineEdit *cut = fieldCutAtSeparator(this);
    ok = false;
    for (const Row &row : rows_) {
        if (row.control == cut)
            return refuse(row, cutAtSeparator());
        if (cut == nullptr)
            for (const auto &[holds, refusal] : row.limits)
                if (!holds(typedNumber(static_cast<QLineEdit *>(row.control))))
                    return refuse(row, refusal.text());
    }
    ok = true;
}

void frmSXEDIASI::refuse(const Row &row, const std::string &text)
{
    showRefusal(text);
    int tab = 0;
    while (!ui_->SSTab1->widget(tab)->isAncestorOf(row.control))
        ++tab;
    ui_->SSTab1->setCurrentIndex(tab);
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): each row has a control
    static_cast<QLineEdit *>(row.control)->selectAll();
    (row.control->isEnabled() ? row.control : row.governor)->setFocus();
}

bool frmSXEDIASI::apply()
{
    bool ok = false;
    Elegxos_An_Einai_OK(ok);
    if (!ok)
        return false;
    const float step = kannab;
    for (const Row &row : rows_)
        takeOver(settingOf(row.setting), shown(row));
    if (kannab != step)
        chosenGridStep = kannab;
    emit applied();
    return true;
}

void frmSXEDIASI::storeDefaults()
{
    bool ok = false;
    Elegxos_An_Einai_OK(ok);
    if (!ok)
        return;
    for (const Row &row : rows_)
        storeAsDefault(settingOf(row.setting), shown(row));
    chosenGridStep.reset(); // a new model takes the default from now on
    if (writeSettingsOrTell())
        Grammi_Log(Metafrasi(1650, "The options shown are the defaults of the program now."),
                   logColour::black);
}

} // namespace veskora

#include "moc_frmSXEDIASI.cpp"
