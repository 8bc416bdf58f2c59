#include "NumberField.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Text.h"

#include <QLineEdit>
#include <QValidator>

namespace veskora {

namespace {

/// What stands for a point or a minus becomes one.
class DecimalPoint : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override
    {
        text = withPlainSigns(text);
        return Acceptable;
    }
};

} // namespace

QString withPlainSigns(QString text)
{
    constexpr char16_t printedMinus = 0x2212;
    return text.replace(',', '.').replace(QChar(printedMinus), '-');
}

void takeDecimalComma(QLineEdit *field)
{
    field->setValidator(new DecimalPoint(field));
}

QLineEdit *fieldCutAtSeparator(const QWidget *form)
{
    for (QLineEdit *field : form->findChildren<QLineEdit *>())
        if (dynamic_cast<const DecimalPoint *>(field->validator()) != nullptr
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
