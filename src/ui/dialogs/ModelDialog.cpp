#include "ModelDialog.h"

#include "Desktop.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "NumberList.h"
#include "Text.h"
#include "WindowParts.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace veskora {

ModelDialog::ModelDialog(QWidget *parent) : QDialog(parent)
{
    setWindowModality(Qt::WindowModal);
}

void ModelDialog::equip()
{
    equip(Metafrasi(2004, "Apply"));
}

void ModelDialog::equip(const std::string &applies)
{
    const auto button = [this](const char *name, const std::string &caption, auto pressed,
                               Qt::FocusPolicy focus) {
        auto *common = findChild<QPushButton *>(name);
        if (common == nullptr)
            return;
        common->setText(qtText(caption));
        common->setFocusPolicy(focus);
        connect(common, &QPushButton::clicked, this, pressed);
    };
    // Clicked, they act on what is in sight before the click: the focus stays, so that no field
    // takes something over between the press and the release.
    button("SSCommand2", Metafrasi(2005, "Delete"), &ModelDialog::pressDelete, Qt::TabFocus);
    button(
        "SSCommand3", applies, [this] { press(&ModelDialog::apply); }, Qt::TabFocus);
    button("SSCommand29", Metafrasi(2003, "Cancel"), &QDialog::reject, Qt::StrongFocus);

    for (QPushButton *push : findChildren<QPushButton *>())
        push->setAutoDefault(false);
    pressButtonsByEnter(this);
    for (QAbstractButton *push : findChildren<QAbstractButton *>())
        push->installEventFilter(this);
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        takeDecimalComma(field);
        if (qobject_cast<QComboBox *>(field->parent()) == nullptr)
            field->setMinimumWidth(field->fontMetrics().horizontalAdvance("-1.234567E+38 0"));
    }
    assignDialogMnemonics(this);
}

void ModelDialog::chainEnter(const QList<QWidget *> &fields)
{
    for (qsizetype i = 0; i < fields.size(); ++i) {
        next_[fields[i]] = fields.value(i + 1);
        fields[i]->installEventFilter(this);
    }
}

bool ModelDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const auto field = next_.constFind(static_cast<QWidget *>(watched));
        if (field != next_.constEnd() && isEnter(*key)) {
            if (key->modifiers().testFlag(Qt::ShiftModifier))
                press(&ModelDialog::applyAndGoOn);
            else
                pressEnter(field.key(), field.value());
            return true;
        }
    } else if (auto *button = qobject_cast<QAbstractButton *>(watched);
               event->type() == QEvent::Shortcut && button != nullptr
               && (button->focusPolicy() & Qt::ClickFocus) != 0) {
        button->setFocus(Qt::ShortcutFocusReason); // its letter leaves the field as a click does
    }
    return QDialog::eventFilter(watched, event);
}

void ModelDialog::pressEnter(QWidget *field, QWidget *next)
{
    if (!takeEntered(field))
        return;
    if (next != nullptr)
        focusAndSelect(next);
    else
        press(&ModelDialog::apply);
}

void ModelDialog::press(void (ModelDialog::*applies)())
{
    if (QLineEdit *field = fieldCutAtSeparator(this))
        refuse(cutAtSeparator(), field);
    else if (isReady(false))
        (this->*applies)();
}

void ModelDialog::pressDelete()
{
    if (isReady(true))
        remove();
}

bool ModelDialog::takeEntered(QWidget *)
{
    return true;
}

bool ModelDialog::refuse(const std::string &text, QWidget *field)
{
    showRefusal(text);
    focusAndSelect(field);
    return false;
}

bool ModelDialog::refuseOverflow(QWidget *field)
{
    return refuse(Metafrasi(96, "The number given is too large."), field);
}

void ModelDialog::focusAndSelect(QWidget *field)
{
    field->setFocus();
    if (auto *text = qobject_cast<QLineEdit *>(field))
        text->selectAll();
    else if (auto *list = qobject_cast<QComboBox *>(field))
        list->lineEdit()->selectAll();
}

void ModelDialog::equipNote()
{
    constexpr int lines = 2, moment = 5000; // ms
    note_ = new QLabel(this);
    note_->setObjectName("Note");
    note_->setTextFormat(Qt::PlainText);
    note_->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    note_->setWordWrap(true);
    note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    note_->setMinimumHeight(lines * note_->fontMetrics().lineSpacing());
    auto *parts = qobject_cast<QBoxLayout *>(layout());
    parts->insertWidget(parts->count() - 1, note_);
    noteTimer_ = new QTimer(this);
    noteTimer_->setObjectName("NoteTimer");
    noteTimer_->setSingleShot(true);
    noteTimer_->setInterval(moment);
    connect(noteTimer_, &QTimer::timeout, this, &ModelDialog::forgetNote);
}

void ModelDialog::note(const std::string &text)
{
    forgetNote();
    note_->setText(qtText(text));
    noted_ = focusWidget();
    if (noted_ != nullptr)
        noted_->setAccessibleDescription(note_->text()); // a label that changes is read by none
    noteTimer_->start();
}

void ModelDialog::forgetNote()
{
    note_->clear();
    if (noted_ != nullptr)
        noted_->setAccessibleDescription({});
}

void ModelDialog::showDone(const std::string &text, QWidget *field)
{
    if (!text.empty())
        Grammi_Log(text, logColour::navy);
    focusAndSelect(field);
    note(text);
}

void ModelDialog::keepInOrder(NumberList *first, NumberList *last)
{
    const auto follow = [first, last] {
        if (const auto end = last->row(); end && first->row() > end)
            last->showNumber(first->row());
    };
    connect(first, &NumberList::picked, this, follow);
    connect(first, &NumberList::left, this, follow);
    // Pressed by its letter or the mouse, Apply leaves the focus where it is.
    connect(findChild<QPushButton *>("SSCommand3"), &QPushButton::pressed, this, [first, follow] {
        if (first->hasFocus())
            follow();
    });
}

std::optional<int> ModelDialog::rowOrRefuse(NumberList *list,
                                            std::string (*noSuch)(const NumberList *list))
{
    const std::optional<int> row = list->row();
    if (!row)
        refuse(noSuch(list), list);
    return row;
}

void ModelDialog::modelChanged()
{
    Allagi_Montelou = true;
    desktop().redraw();
}

namespace {

std::string typed(const NumberList *list)
{
    return plainText(list->currentText().trimmed());
}

} // namespace

std::string noSuchNode(const NumberList *list)
{
    return typed(list).empty() ? Metafrasi(1611, "The number of a node is missing.")
                               : Metafrasi(1612, "There is no node #") + typed(list) + ".";
}

std::string noSuchElement(const NumberList *list)
{
    return typed(list).empty() ? Metafrasi(1613, "The number of an element is missing.")
                               : Metafrasi(1614, "There is no element #") + typed(list) + ".";
}

std::string noSuchGroup(const NumberList *list)
{
    return typed(list).empty() ? Metafrasi(1615, "The number of a group is missing.")
                               : Metafrasi(1616, "There is no group #") + typed(list) + ".";
}

std::string groupConstants(int g, std::string (*text)(double))
{
    return "E= " + text(Omades(g, group::E)) + ", A= " + text(Omades(g, group::A))
           + ", I= " + text(Omades(g, group::I));
}

std::optional<float> typedSingle(const QLineEdit *field)
{
    return toSingle(typedNumber(field));
}

void showNonZero(QLineEdit *field, float value)
{
    field->setText(value == 0 ? QString() : qtText(numberText(value)));
}

} // namespace veskora

#include "moc_ModelDialog.cpp"
