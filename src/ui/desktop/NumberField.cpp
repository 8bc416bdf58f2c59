#include "NumberField.h"

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

double typedNumber(const QLineEdit *field)
{
    return Val(plainText(field->text()));
}

} // namespace veskora
