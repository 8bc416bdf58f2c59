#include "NumberField.h"

#include "Functions.h"
#include "MathFunc.h"
#include "QtDesktop.h"

#include <QLineEdit>
#include <QValidator>

namespace veskora {

namespace {

class DecimalPoint : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override
    {
        text.replace(',', '.');
        return Acceptable;
    }
};

} // namespace

void takeDecimalComma(QLineEdit *field)
{
    field->setValidator(new DecimalPoint(field));
}

QLineEdit *fieldWithTwoSeparators(const QWidget *form)
{
    for (QLineEdit *field : form->findChildren<QLineEdit *>())
        if (dynamic_cast<const DecimalPoint *>(field->validator()) != nullptr
            && breaksOffAtPoint(plainText(field->text())))
            return field;
    return nullptr;
}

std::string twoSeparators()
{
    return Metafrasi(1610, "The number given has a separator of thousands, or more than one "
                           "decimal separator.");
}

double typedNumber(const QLineEdit *field)
{
    return Val(plainText(field->text()));
}

} // namespace veskora
