#pragma once

#include "MathFunc.h"
#include "NumberField.h"

#include <QDialog>
#include <QHash>
#include <QPointer>

#include <optional>
#include <string>

class QLabel;
class QLineEdit;
class QTimer;

namespace veskora {

class NumberList;

/// What the dialogs that change the model share: they are window-modal, Enter goes from field to
/// field and applies in the last one, Shift+Enter applies in each and goes on to the next row, no
/// button takes Enter by itself, and a refusal shows, is logged, selects and focuses.
///
/// A form sets its own captions, then calls `equip` once. The common buttons are found by name:
/// `SSCommand3` Apply, `SSCommand29` Cancel, and where rows can go, `SSCommand2` Delete.
class ModelDialog : public QDialog
{
    Q_OBJECT
public:
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Shows the tables as they are now, after another than this dialog has changed them.
    virtual void refill() { fillLists(); }

protected:
    explicit ModelDialog(QWidget *parent);

    /// Captions and connects the common buttons, makes a decimal comma a point in every field, and
    /// gives the captions mnemonics. @p applies is the caption of `SSCommand3`.
    void equip(const std::string &applies);
    void equip();

    /// Enter goes from each of @p fields to the next, and applies in the last.
    void chainEnter(const QList<QWidget *> &fields);

    /// Makes a place over the buttons, which close the form, for what `note` says.
    void equipNote();
    /// Says @p text there for a moment; a screen reader has it with the field of the focus.
    void note(const std::string &text);
    /// The same of what was done, unless it is nothing, and in the log. Typing goes on in @p field,
    /// from which Enter only goes on: so nothing is done twice by one key more.
    void showDone(const std::string &text, QWidget *field);

    /// Has @p last follow when @p first comes to exceed it.
    void keepInOrder(NumberList *first, NumberList *last);

    virtual void apply() = 0;
    /// Shift+Enter; a dialog of rows goes on to the next.
    virtual void applyAndGoOn() { apply(); }
    virtual void remove() {}
    /// Lists the rows that there are.
    virtual void fillLists() = 0;
    /// Asked before Apply and, where it @p deletes, Delete act.
    virtual bool isReady([[maybe_unused]] bool deletes) { return true; }
    /// Enter was pressed in @p field.
    /// @return whether it goes on to the next one
    virtual bool takeEntered(QWidget *field);

    /// Says why not, in a box and in the log, and leads to the field at fault.
    /// @return false
    static bool refuse(const std::string &text, QWidget *field);
    /// The refusal of a number beyond what the tables hold.
    static bool refuseOverflow(QWidget *field);

    /// Gives @p field the focus with its whole text selected.
    static void focusAndSelect(QWidget *field);

    /// The row chosen in @p list; what is no row is refused with the text that @p noSuch makes, and
    /// the list gets the focus.
    static std::optional<int> rowOrRefuse(NumberList *list,
                                          std::string (*noSuch)(const NumberList *list));

    /// To be called when rows have changed: the results are old now, and the picture is repainted.
    static void modelChanged();

private:
    void press(void (ModelDialog::*applies)());
    void forgetNote();
    void pressDelete();
    void pressEnter(QWidget *field, QWidget *next);

    QHash<QWidget *, QWidget *> next_; ///< by field; none behind the last
    QLabel *note_ = nullptr;
    QTimer *noteTimer_ = nullptr;
    QPointer<QWidget> noted_; ///< the field whose description the note is
};

/// @name What is said where the number in a list is missing, or no row has it
/// @{
std::string noSuchNode(const NumberList *list);
std::string noSuchElement(const NumberList *list);
std::string noSuchGroup(const NumberList *list);
/// @}

/// "E= 210000000, A= 0.01, I= 0.0001" of group @p g, each number as @p text makes it.
std::string groupConstants(int g, std::string (*text)(double) = numberText);

/// The number that is typed in @p field as the tables store it; none where a Single cannot hold it.
std::optional<float> typedSingle(const QLineEdit *field);

/// Shows @p value, or nothing for 0.
void showNonZero(QLineEdit *field, float value);

} // namespace veskora
