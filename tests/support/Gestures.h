#pragma once
/// @file
/// What a user does at the main window and sees on the canvas, as the files of tests/data/ write
/// it.

#include "DataCases.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "RowQueries.h"
#include "Settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <map>

namespace veskora {

class Gestures : public MainWindow
{
protected:
    Gestures()
    {
        start();
        // All of it on the screen, or it is moved there while the test goes on.
        window->setGeometry(10, 30, 760, 740);
        window->activateWindow();
        canvas().setFocus();
        QCoreApplication::processEvents();
    }

    /// "Field=text" where a check box takes "x", or a button's name alone.
    static void fill(const QWidget &form, const QStringList &entries)
    {
        for (const QString &entry : entries) {
            const QString name = entry.section('=', 0, 0), text = entry.section('=', 1);
            if (auto *list = form.findChild<QComboBox *>(name))
                list->setEditText(text);
            else if (auto *field = form.findChild<QLineEdit *>(name))
                field->setText(text);
            else if (auto *check = form.findChild<QCheckBox *>(name))
                check->setChecked(text == "x");
            else
                QTest::mouseClick(form.findChild<QAbstractButton *>(name), Qt::LeftButton);
        }
    }
    void send(QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(&canvas(), &event);
    }

    /// What a test has of verbs besides those of `act`. @return whether it is one
    virtual bool perform(const QString &) { return false; }

    /// Several acts stand between commas. What is none of these verbs is a command; behind it, or
    /// behind an entry of the right button's menu, stands what is entered in its form.
    void act(const std::string &acts)
    {
        for (const QString &gesture : QString::fromStdString(acts).split(", ")) {
            if (perform(gesture))
                continue;
            const QStringList words = gesture.split(' ');
            const QByteArray name = words.value(1).toLatin1();
            const double x = words.value(1).toDouble(), y = words.value(2).toDouble();
            const auto button = words.last() == "right"    ? Qt::RightButton
                                : words.last() == "middle" ? Qt::MiddleButton
                                                           : Qt::LeftButton;
            const std::map<QString, std::function<void()>> verbs = {
                {"model", [&] { buildModel(gesture.mid(6).toStdString()); }},
                {"agree", [&] { desktop.agrees = true; }}, // to what is asked in this row
                {"grid", [&] { nai_grid = name == "on"; }},
                {"view", [&] { Katastasi_Provolis = static_cast<std::int16_t>(x); }},
                {"move", [&] { moveTo(x, y); }},
                {"pull", [&] { moveTo(x, y, button); }},
                {"press", [&] { press(x, y, button); }},
                {"release", [&] { release(x, y, button); }},
                {"click", [&] { click(x, y); }},
                {"double-click", [&] { doubleClick(x, y); }},
                {"drag", [&] { dragModel(x, y, words[3].toDouble(), words[4].toDouble()); }},
                {"leave", [&] { send(QEvent::Leave); }},
                {"focus", [&] { find<QWidget>(name)->setFocus(); }},
                {"key", [&] { QTest::keyClick(QApplication::focusWidget(), name[0]); }},
                {"close", [&] { find<QMenu>(name)->close(); }},
                {"tick", [&] { tick(name); }},
            };
            if (const auto verb = verbs.find(words[0]); verb != verbs.end()) {
                verb->second();
                continue;
            }
            const bool isEntry = words[0] == "menu";
            answered(
                [&] {
                    if (isEntry)
                        chooseInMenu(x, y, words[3].toLatin1());
                    else
                        trigger(words[0].toLatin1());
                },
                [&](QWidget &form) {
                    fill(form, words.mid(isEntry ? 4 : 1));
                    form.close();
                });
            window->activateWindow(); // else a press would only bring it to the front
            QCoreApplication::processEvents();
            tick("ActivationTimer");
        }
    }

    /// What lies on the canvas, entries of an open menu, the codes of the nodes, how many elements.
    std::string seen()
    {
        QStringList parts;
        for (const char *name : {"Shape_Kombos", "Label_Kombos", "Line_Stoixeio", "Label_Stoixeio",
                                 "Line1", "Label2", "Shape1", "SupportCode", "DrawnGroup"})
            if (const auto *part = find<QWidget>(name); part->isVisible()) {
                const auto *label = qobject_cast<const QLabel *>(part);
                parts << name + (label == nullptr ? "" : '=' + label->text().replace('\n', ' '));
            }
        for (const char *name : {"mnuAorato", "mnuZoomakia"}) {
            const auto *menu = find<QMenu>(name);
            QStringList entries;
            for (const QAction *entry : menu->actions())
                if (entry->isVisible())
                    entries << (entry->isSeparator() ? "-" : entry->text().remove('&'));
            if (menu->isVisible())
                parts << '[' + entries.join("; ") + ']';
        }
        for (int n = 1; n <= Arithmos_Kombon; ++n)
            parts << QString::fromStdString(restraintCode(n));
        parts << QString::number(Arithmos_Stoixeion);
        return parts.join(' ').toStdString();
    }
};

} // namespace veskora
