#pragma once
/// @file
/// A model dialog on the offscreen platform: opened as the program opens it, controls found by
/// name, keys typed, boxes answered by a script.

#include "Models.h"
#include "ModelText.h"
#include "QtDesktop.h"
#include "ScriptedDesktop.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace veskora {

inline constexpr std::uint32_t navy = 8388608, green = 32768, red = 255;

class Dialogs : public StoreTest
{
protected:
    /// Opens a form and talks to it from inside its own event loop, then closes it.
    template <typename Form, typename Open, typename Talk>
    void with(Open open, Talk talk)
    {
        Form dialog;
        form = &dialog;
        QTimer::singleShot(0, &dialog, [&] {
            try {
                if (!QTest::qWaitForWindowActive(form)) // else no field is ever left
                    throw std::runtime_error("the dialog did not come to the front");
                talk();
            } catch (const std::exception &lost) {
                ADD_FAILURE() << lost.what();
            }
            dialog.close();
        });
        open(dialog);
        form = nullptr;
    }
    template <typename Form, typename Talk>
    void withNew(Talk talk)
    {
        with<Form>([](Form &dialog) { dialog.openNew(); }, talk);
    }
    template <typename Form, typename Talk>
    void withRow(int row, Talk talk)
    {
        with<Form>([row](Form &dialog) { dialog.openRow(row); }, talk);
    }

    template <typename Object = QWidget>
    Object *find(const std::string &name)
    {
        auto *object = form->findChild<Object *>(QString::fromStdString(name));
        if (object == nullptr)
            throw std::runtime_error("no control named " + name);
        return object;
    }
    void click(const std::string &button) { find<QAbstractButton>(button)->click(); }
    void key(const std::string &field, Qt::Key key,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(find(field), key, modifiers);
    }
    /// The letter of a button's caption, wherever the focus is.
    void pressLetter(const std::string &button)
    {
        const QString caption = find<QAbstractButton>(button)->text();
        const char letter = caption.at(caption.indexOf('&') + 1).toLower().toLatin1();
        QTest::keyClick(form->focusWidget(), letter, Qt::AltModifier);
    }
    QLineEdit *line(const std::string &field)
    {
        auto *list = form->findChild<QComboBox *>(QString::fromStdString(field));
        return list != nullptr ? list->lineEdit() : find<QLineEdit>(field);
    }
    void type(const std::string &field, const std::string &text)
    {
        find(field)->setFocus();
        line(field)->selectAll();
        QTest::keyClick(find(field), Qt::Key_Delete);
        QTest::keyClicks(find(field), QString::fromStdString(text));
    }
    /// "Field=text Field=text": types each; a check box takes "x" or "o"; "!" at the end of a text
    /// presses Enter.
    void fill(const std::string &entries)
    {
        for (const QString &entry :
             QString::fromStdString(entries).split(' ', Qt::SkipEmptyParts)) {
            const std::string name = entry.section('=', 0, 0).toStdString();
            QString text = entry.section('=', 1);
            const bool enters = text.endsWith('!');
            text.remove('!');
            if (auto *check = form->findChild<QCheckBox *>(QString::fromStdString(name))) {
                if (check->isChecked() != (text == "x"))
                    check->click();
            } else {
                type(name, text.toStdString());
            }
            if (enters)
                key(name, Qt::Key_Return);
        }
    }
    std::string shown(const std::string &field)
    {
        if (auto *label = form->findChild<QLabel *>(QString::fromStdString(field)))
            return label->text().remove('&').toStdString();
        return line(field)->text().toStdString();
    }
    /// The texts of several fields, or the letters of check boxes.
    std::string shownIn(const std::string &fields)
    {
        QStringList texts;
        for (const QString &name : QString::fromStdString(fields).split(' ')) {
            const auto *check = form->findChild<QCheckBox *>(name);
            texts << (check == nullptr ? QString::fromStdString(shown(name.toStdString()))
                                       : QString(check->isChecked() ? "x" : "o"));
        }
        return texts.join('|').toStdString();
    }
    std::string focus() { return form->focusWidget()->objectName().toStdString(); }

    /// The whole model, as its file.
    std::string model() { return modelText(); }
    std::string modelOf(const std::string &text)
    {
        buildModel(text);
        return model();
    }
    /// What was logged since the last call, one colour for all of it.
    std::vector<std::string> logged(std::uint32_t colour)
    {
        std::vector<std::string> lines;
        for (const LogLine &entry : std::exchange(desktop.log, {})) {
            EXPECT_EQ(entry, (LogLine{entry.text, colour, false}));
            lines.push_back(entry.text);
        }
        return lines;
    }
    int redraws() const
    {
        return static_cast<int>(std::ranges::count(desktop.events, std::string("redraw")));
    }

    QtDesktop resources; ///< for the pictures
    QDialog *form = nullptr;
};

} // namespace veskora
