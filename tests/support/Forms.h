#pragma once
/// @file
/// A user's hands on a modal form: controls found by name, keys typed, texts read.

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <stdexcept>
#include <utility>

namespace veskora {

/// The rows of a table in @p text, their cells parted by " | "; "#" begins a comment.
inline QList<QStringList> rowsOf(const std::string &text)
{
    QList<QStringList> rows;
    for (const QString &row : QString::fromStdString(text).split('\n', Qt::SkipEmptyParts))
        if (!row.startsWith('#'))
            rows << row.split(" | ");
    return rows;
}

class Forms
{
public:
    virtual ~Forms() = default;

protected:
    /// Talks to the modal form that @p open shows, from inside its event loop, then closes it.
    template <typename Open, typename Talk>
    void during(Open open, Talk talk)
    {
        bool came = false;
        QTimer::singleShot(0, qApp, [&] {
            came = true;
            QWidget *outer = std::exchange(form, QApplication::activeModalWidget());
            try {
                if (form == nullptr || !QTest::qWaitForWindowActive(form))
                    throw std::runtime_error("the form did not come to the front");
                talk();
            } catch (const std::exception &lost) {
                ADD_FAILURE() << lost.what();
            }
            if (form != nullptr)
                form->close();
            form = outer;
        });
        open();
        EXPECT_TRUE(came);
    }

    template <typename Object = QWidget>
    Object *control(const std::string &name)
    {
        auto *object = form->findChild<Object *>(QString::fromStdString(name));
        if (object == nullptr)
            throw std::runtime_error("no control named " + name);
        return object;
    }
    QLineEdit *line(const std::string &field)
    {
        auto *list = form->findChild<QComboBox *>(QString::fromStdString(field));
        return list != nullptr ? list->lineEdit() : control<QLineEdit>(field);
    }
    void type(const std::string &field, const std::string &text)
    {
        control(field)->setFocus();
        line(field)->selectAll();
        QTest::keyClick(control(field), Qt::Key_Delete);
        QTest::keyClicks(control(field), QString::fromStdString(text));
    }
    /// "Field=text Check=x Button @Field ~List [Key]": types the text, after which "!" presses
    /// Enter; has the box ticked, or by "o" not; presses the button; goes to the field; turns the
    /// wheel over the list, down; presses the key.
    void act(const std::string &acts)
    {
        for (QString entry : QString::fromStdString(acts).split(' ', Qt::SkipEmptyParts)) {
            const bool enters = entry.endsWith('!');
            entry.remove('!');
            const std::string name = entry.section('=', 0, 0).toStdString();
            const std::string text = entry.section('=', 1).toStdString();
            if (entry.startsWith('@'))
                control(name.substr(1))->setFocus();
            else if (entry.startsWith('~'))
                turnWheel(*control(name.substr(1)));
            else if (entry.startsWith('['))
                pressKey(entry.mid(1).chopped(1));
            else if (!entry.contains('='))
                control<QAbstractButton>(name)->click();
            else if (!isCheckable(name))
                type(name, text);
            else if (valueOf(name) != text)
                control<QAbstractButton>(name)->click();
            if (enters)
                pressKey("Return");
        }
    }
    static void turnWheel(QWidget &part)
    {
        QWheelEvent down({5, 5}, part.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&part, &down);
    }
    void pressKey(const QString &key)
    {
        const QKeyCombination keys = QKeySequence(key)[0];
        QWidget *focused = form->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : form, keys.key(), keys.keyboardModifiers());
    }
    /// Of a field its text, of a list its rows, of a check box "x" or "o"; "focus" is the name of
    /// what has it.
    virtual std::string valueOf(const std::string &name)
    {
        if (name == "focus")
            return form->focusWidget()->objectName().toStdString();
        if (isCheckable(name))
            return control<QAbstractButton>(name)->isChecked() ? "x" : "o";
        if (auto *label = form->findChild<QLabel *>(QString::fromStdString(name)))
            return label->text().remove('&').toStdString();
        if (auto *list = form->findChild<QListWidget *>(QString::fromStdString(name))) {
            QStringList rows;
            for (int row = 0; row < list->count(); ++row)
                rows << list->item(row)->text();
            return rows.join(' ').toStdString();
        }
        return line(name)->text().toStdString();
    }
    std::string shownIn(const std::string &names)
    {
        QStringList texts;
        for (const QString &name : QString::fromStdString(names).split(' ', Qt::SkipEmptyParts))
            texts << QString::fromStdString(valueOf(name.toStdString()));
        return texts.join('|').toStdString();
    }

    QWidget *form = nullptr;

private:
    bool isCheckable(const std::string &name) const
    {
        const auto *button = form->findChild<QAbstractButton *>(QString::fromStdString(name));
        return button != nullptr && button->isCheckable();
    }
};

} // namespace veskora
