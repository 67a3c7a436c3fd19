#include "web/logic/DepartmentsPage.h"
#include "web/logic/SiteDepartments.h"

#include <gtest/gtest.h>

using namespace qlon::web;

namespace {

FormFields fullList(const QString &action)
{
    FormFields fields{{QStringLiteral("action"), action}};
    for (int row = 0; row < DepartmentRows; ++row)
        fields.insert(QStringLiteral("row%1").arg(row), QStringLiteral("D%1").arg(row));
    return fields;
}

} // namespace

TEST(DepartmentsPageTest, RefusesWhatTheFileCantHoldAndKeepsTheEditorsRows)
{
    FormFields fields = fullList(QStringLiteral("save"));
    fields[QStringLiteral("row2")] = QStringLiteral("Caf\u00e9");
    const DepartmentsChange saved = ChangeDepartments(fields);
    ASSERT_TRUE(saved.error.isEmpty()) << saved.error.toStdString();
    EXPECT_EQ(saved.rows.size(), DepartmentRows);
    EXPECT_EQ(saved.rows[2], QByteArray("Caf\xe9"));

    const QStringList refusedNames = {
        QStringLiteral("Sushi \u5bff\u53f8"), QStringLiteral("Line\nbreak"), QStringLiteral("A\"B"), QString(41, QLatin1Char('x'))};
    for (const QString &name : refusedNames) {
        fields[QStringLiteral("row2")] = name;
        EXPECT_FALSE(ChangeDepartments(fields).error.isEmpty()) << name.toStdString();
    }
    // A form that lacks a row would blank it; a full list takes no new name; a button past the rows does nothing.
    FormFields lacking = fullList(QStringLiteral("save"));
    lacking.remove(QStringLiteral("row13"));
    FormFields adding = fullList(QStringLiteral("add"));
    adding.insert(QStringLiteral("new"), QStringLiteral("Sushi"));
    for (const FormFields &refused : {lacking, adding, fullList(QStringLiteral("up:0")), fullList(QStringLiteral("down:13")),
             fullList(QStringLiteral("remove:14")), fullList(QStringLiteral("drop"))})
        EXPECT_FALSE(ChangeDepartments(refused).error.isEmpty()) << refused.value(QStringLiteral("action")).toStdString();
}
