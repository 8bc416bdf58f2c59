#include "NumberField.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Text.h"

#include <QLineEdit>
#include <QValidator>

namespace veskora {

namespace {

/// What stands for a decimal separator or a minus becomes one.
class PlainSigns : public QValidator
{
public:
    PlainSigns(QObject *parent, QChar separator) : QValidator(parent), separator_(separator) {}

    State validate(QString &text, int &) const override
    {
        text = withPlainSigns(text).replace('.', separator_);
        return Acceptable;
    }

private:
    const QChar separator_;
};

QChar regionalSeparator()
{
    return qtText(regionalDecimalSeparator()).front();
}

} // namespace

QString withPlainSigns(QString text)
{
    constexpr char16_t printedMinus = 0x2212;
    return text.replace(',', '.').replace(QChar(printedMinus), '-');
}

void takeDecimalComma(QLineEdit *field)
{
    field->setValidator(new PlainSigns(field, '.'));
}

void takeRegionalSeparator(QLineEdit *field)
{
    field->setValidator(new PlainSigns(field, regionalSeparator()));
}

std::optional<double> wholeTypedNumber(const QLineEdit *field)
{
    return numberFromWholeText(plainText(field->text().replace(regionalSeparator(), '.')));
}

QLineEdit *fieldCutAtSeparator(const QWidget *form)
{
    for (QLineEdit *field : form->findChildren<QLineEdit *>())
        if (dynamic_cast<const PlainSigns *>(field->validator()) != nullptr
            && breaksOffAtSeparator(plainText(field->text())))
            return field;
    return nullptr;
}

std::string cutAtSeparator()
{
    return Metafrasi(1610, "The number given has a separator of thousands, or more than one "
                           "decimal separator.");
}

double typedNumber(const QLineEdit *field)
{
    return Val(plainText(field->text()));
}

} // namespace veskora
