#include "core/RuntimeError.h"

namespace qlon {

RuntimeError::RuntimeError(Number number, QString detail)
    : m_number(number)
    , m_detail(std::move(detail))
{
}

QString RuntimeError::description() const
{
    switch (m_number) {
    case Overflow: return QStringLiteral("Overflow");
    case SubscriptOutOfRange: return QStringLiteral("Subscript out of range");
    case DivisionByZero: return QStringLiteral("Division by zero");
    case TypeMismatch: return QStringLiteral("Type mismatch");
    case BadFileNameOrNumber: return QStringLiteral("Bad file name or number");
    case FileNotFound: return QStringLiteral("File not found");
    case FileAlreadyOpen: return QStringLiteral("File already open");
    case InputPastEndOfFile: return QStringLiteral("Input past end of file");
    case BadRecordNumber: return QStringLiteral("Bad record number");
    case PermissionDenied: return QStringLiteral("Permission denied");
    case PathFileAccessError: return QStringLiteral("Path/File access error");
    case PathNotFound: return QStringLiteral("Path not found");
    case InvalidPropertyValue: return QStringLiteral("Invalid property value");
    }
    return QStringLiteral("Application-defined or object-defined error");
}

QString RuntimeError::message() const
{
    return QStringLiteral("Run-time error '%1':\r\n\r\n%2").arg(int(m_number)).arg(description());
}

} // namespace qlon
