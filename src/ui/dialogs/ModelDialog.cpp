#include "ModelDialog.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "NumberList.h"
#include "QtDesktop.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

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
    const auto button = [this](const char *name, const std::string &caption, auto pressed) {
        auto *common = findChild<QPushButton *>(name);
        if (common == nullptr)
            return;
        common->setText(qtText(caption));
        connect(common, &QPushButton::clicked, this, pressed);
    };
    button("SSCommand2", Metafrasi(2005, "Delete"), [this] { remove(); });
    button("SSCommand3", applies, [this] { apply(); });
    button("SSCommand29", Metafrasi(2003, "Cancel"), [this] { reject(); });

    for (QPushButton *push : findChildren<QPushButton *>())
        push->setAutoDefault(false);
    for (QAbstractButton *push : findChildren<QAbstractButton *>())
        push->installEventFilter(this);
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        if (field->validator() != nullptr || field->isReadOnly())
            continue;
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
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            if (!key->isAutoRepeat()) // a key held down would add row after row
                pressEnter(static_cast<QWidget *>(watched));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ModelDialog::pressEnter(QWidget *field)
{
    if (auto *list = qobject_cast<NumberList *>(field))
        emit list->entered();
    const auto next = next_.constFind(field);
    if (next == next_.constEnd())
        static_cast<QAbstractButton *>(field)->click();
    else if (*next != nullptr)
        lead(*next);
    else
        apply();
}

bool ModelDialog::refuse(const std::string &text, QWidget *field)
{
    showRefusal(text);
    lead(field);
    return false;
}

bool ModelDialog::refuseOverflow(QWidget *field)
{
    return refuse(Metafrasi(96, "The number given is too large."), field);
}

void ModelDialog::lead(QWidget *field)
{
    field->setFocus();
    if (auto *text = qobject_cast<QLineEdit *>(field))
        text->selectAll();
    else if (auto *list = qobject_cast<QComboBox *>(field))
        list->lineEdit()->selectAll();
}

std::optional<int> ModelDialog::chosenRow(NumberList *list)
{
    const std::optional<int> row = list->row();
    if (!row)
        lead(list);
    return row;
}

void ModelDialog::modelChanged()
{
    Allagi_Montelou = true;
    desktop().redraw();
}

std::string groupConstants(int g)
{
    return "E= " + numberText(Omades(g, group::E)) + ", A= " + numberText(Omades(g, group::A))
           + ", I= " + numberText(Omades(g, group::I));
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
