#include "StatusBar.h"

#include "ElidedLabel.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Settings.h"
#include "StatusPanel.h"
#include "Text.h"
#include "WindowParts.h"
#include "Zoom.h"

#include <QHBoxLayout>

#include <array>

namespace veskora {

namespace {

/// A panel that is pressed.
struct Panel
{
    const char *name;
    Phrase text;
    Phrase description;
    bool *setting; ///< what it switches; none where it does something else
};

const std::array panels = {
    Panel{"sint", Phrase{68, "COORDS"}, Phrase{69, "Coordinates on/off"}, nullptr},
    Panel{"Aksones", Phrase{70, "AXES"}, Phrase{71, "Axes on/off"}, &nai_aksones},
    Panel{"Kannabos", Phrase{72, "GRID"}, Phrase{73, "Grid on/off"}, &nai_grid},
    Panel{"Times", Phrase{74, "LABELS"}, Phrase{75, "Labels on/off"}, nullptr},
};

/// By the values of `view`.
const std::array modes = {Phrase{11, "Model"}, Phrase{76, "Bending moment Diagram [M]"},
                          Phrase{77, "Shear force Diagram [Q]"},
                          Phrase{78, "Axial force Diagram [N]"}, Phrase{79, "Deformed model"}};

QLabel *coordinate(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("x = -123.456"));
    // Hidden it keeps its room, and the buttons beside it stay under the pointer.
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    return label;
}

} // namespace

StatusBar::StatusBar(QWidget *parent) : QStatusBar(parent)
{
    setSizeGripEnabled(false); // the frame has one, and the texts need the room
    auto *contents = new QWidget(this);
    addWidget(contents, 1);
    auto *row = new QHBoxLayout(contents);
    constexpr int gap = 3; // logical pixels
    row->setContentsMargins(gap, 0, gap, 0);
    row->setSpacing(gap);
    row->addWidget(x_ = coordinate("Panel1", contents));
    row->addWidget(y_ = coordinate("Panel2", contents));
    for (const Panel &panel : panels) {
        auto *button = new StatusPanel(contents);
        button->setObjectName(panel.name);
        row->addWidget(button);
        if (panel.setting != nullptr)
            connect(button, &QPushButton::clicked, this, [this, button, setting = panel.setting] {
                *setting = !button->look();
                button->setLook(*setting);
                emit settingChanged();
            });
    }
    mode_ = new ElidedLabel(contents);
    mode_->setObjectName("Panel7");
    row->addWidget(mode_, 1);
    group_ = new QLabel(contents);
    group_->setObjectName("DrawnGroup");
    group_->setTextFormat(Qt::PlainText);
    group_->hide();
    row->addWidget(group_);

    StatusPanel *sint = panel("sint");
    connect(sint, &QPushButton::clicked, this, [this, sint] {
        sint->setLook(!sint->look());
        x_->setVisible(sint->look());
        y_->setVisible(sint->look());
    });
    StatusPanel *times = panel("Times");
    connect(times, &QPushButton::clicked, this,
            [this, times] { emit labelsWanted(times->mapToGlobal(QPoint())); });
}

StatusPanel *StatusBar::panel(const char *name) const
{
    return findChild<StatusPanel *>(name);
}

void StatusBar::setCaptions()
{
    for (const Panel &row : panels) {
        StatusPanel *button = panel(row.name);
        button->setText(qtText(row.text.text()));
        describe(button, qtText(row.description.text()));
        constexpr int padding = 12; // the style's own least width is made for dialogs
        button->setFixedWidth(button->fontMetrics().horizontalAdvance(button->text()) + padding);
    }
}

void StatusBar::showSettings()
{
    for (const Panel &row : panels)
        if (row.setting != nullptr)
            panel(row.name)->setLook(*row.setting);
}

void StatusBar::showPlace(const Point &at)
{
    if (!x_->isVisibleTo(this))
        return;
    const auto shown = [](double coordinate) {
        if (nai_grid)
            coordinate = Kannabos_Sintetagmeni(coordinate);
        return numberText(Stroggylopoiisi(coordinate, 5));
    };
    x_->setText(qtText(Metafrasi(66, "x = ") + shown(Othoni_X(at.x))));
    y_->setText(qtText(Metafrasi(67, "y = ") + shown(Othoni_Y(at.y))));
}

void StatusBar::showMode()
{
    const auto mode = static_cast<std::size_t>(Katastasi_Provolis);
    mode_->setText(" " + qtText(modes.at(mode).text()));
}

void StatusBar::showGroup()
{
    const int group = groupToDraw();
    group_->setText(qtText(Metafrasi(1714, "New elements: group #") + numberText(group)));
    group_->setVisible(group != 1);
}

} // namespace veskora

#include "moc_StatusBar.cpp"
