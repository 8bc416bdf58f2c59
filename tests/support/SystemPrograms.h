#pragma once
/// @file
/// Programs of the system that read what ours have written.

#include <QProcess>
#include <QStringList>

#include <stdexcept>

namespace veskora {

/// What @p program prints; the window's tests have no PATH.
inline QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start("/usr/bin/" + program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error("cannot run " + program.toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace veskora
