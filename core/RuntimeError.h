#pragma once

#include <QString>

#include <exception>

namespace qlon {

// A failure that the program doesn't handle: it ends the program with the platform's error
// text, unless a region that passes over failures catches it.
class RuntimeError : public std::exception
{
public:
    enum Number {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        DivisionByZero = 11,
        TypeMismatch = 13,
        BadFileNameOrNumber = 52,
        FileNotFound = 53,
        FileAlreadyOpen = 55,
        InputPastEndOfFile = 62,
        BadRecordNumber = 63,
        PermissionDenied = 70,
        PathFileAccessError = 75,
        PathNotFound = 76,
        ObjectNotSet = 91,
        // Of the database components.
        NoCurrentRecord = 3021,
        ReadOnlyDatabase = 3027,
        ObjectClosed = 3704,
        InvalidPropertyValue = 380,
    };

    explicit RuntimeError(Number number, QString detail = {});
    // An error of a component of the platform, such as the database engine, with its own
    // number and text.
    RuntimeError(qint64 number, QString description, QString detail);

    qint64 number() const { return m_number; }
    // The platform's text for the number, such as "Permission denied".
    const QString &description() const { return m_description; }
    // What the user is shown: "Run-time error '70':" and the description.
    QString message() const;
    // Where it happened, for standard error: usually the file's path.
    const QString &detail() const { return m_detail; }

    // Marks a file that another program (a station) held for longer than the program waits for
    // it. No region that passes over failures passes over this one: a report that left the file
    // out would read as a quiet day, so the program ends and a nightly job can try again.
    RuntimeError &heldElsewhere()
    {
        m_heldElsewhere = true;
        return *this;
    }
    bool isHeldElsewhere() const { return m_heldElsewhere; }

    const char *what() const noexcept override { return "qlon::RuntimeError"; }

private:
    qint64 m_number;
    QString m_description;
    QString m_detail;
    bool m_heldElsewhere = false;
};

} // namespace qlon
