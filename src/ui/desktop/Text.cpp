#include "Text.h"

namespace veskora {

QString qtText(const std::string &text)
{
    return QString::fromStdString(text).replace("\r\n", "\n");
}

std::string plainText(const QString &text)
{
    return text.toStdString();
}

} // namespace veskora
