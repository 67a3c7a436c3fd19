#include "core/RuntimeError.h"

namespace qlon {

namespace {

QString descriptionOf(RuntimeError::Number number)
{
    switch (number) {
    case RuntimeError::Overflow: return QStringLiteral("Overflow");
    case RuntimeError::SubscriptOutOfRange: return QStringLiteral("Subscript out of range");
    case RuntimeError::DivisionByZero: return QStringLiteral("Division by zero");
    case RuntimeError::TypeMismatch: return QStringLiteral("Type mismatch");
    case RuntimeError::NoCurrentRecord:
        return QStringLiteral(
            "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record.");
    case RuntimeError::ReadOnlyDatabase: return QStringLiteral("Cannot update. Database or object is read-only.");
    case RuntimeError::ObjectClosed: return QStringLiteral("Operation is not allowed when the object is closed.");
    case RuntimeError::ObjectNotSet: return QStringLiteral("Object variable or With block variable not set");
    case RuntimeError::BadFileNameOrNumber: return QStringLiteral("Bad file name or number");
    case RuntimeError::FileNotFound: return QStringLiteral("File not found");
    case RuntimeError::FileAlreadyOpen: return QStringLiteral("File already open");
    case RuntimeError::InputPastEndOfFile: return QStringLiteral("Input past end of file");
    case RuntimeError::BadRecordNumber: return QStringLiteral("Bad record number");
    case RuntimeError::PermissionDenied: return QStringLiteral("Permission denied");
    case RuntimeError::PathFileAccessError: return QStringLiteral("Path/File access error");
    case RuntimeError::PathNotFound: return QStringLiteral("Path not found");
    case RuntimeError::InvalidPropertyValue: return QStringLiteral("Invalid property value");
    }
    return QStringLiteral("Application-defined or object-defined error");
}

} // namespace

RuntimeError::RuntimeError(Number number, QString detail)
    : m_number(number)
    , m_description(descriptionOf(number))
    , m_detail(std::move(detail))
{
}

RuntimeError::RuntimeError(qint64 number, QString description, QString detail)
    : m_number(number)
    , m_description(std::move(description))
    , m_detail(std::move(detail))
{
}

QString RuntimeError::message() const
{
    return QStringLiteral("Run-time error '%1':\r\n\r\n%2").arg(m_number).arg(m_description);
}

} // namespace qlon
