#include "listbuilder/ItemsSoldEngine.h"

#include "core/Ansi.h"
#include "core/HostPath.h"
#include "store/ReportTemplate.h"
#include "store/SiteConfig.h"

#include <QFileInfo>

namespace qlon {

ItemsSoldEngine::ItemsSoldEngine(const QString &pdfName)
{
    if (Site().DataRoot.isEmpty())
        Site().DataRoot = DefaultSiteRoot;
    m_report = std::make_unique<Report>(ChooseReportOutput(HostPath(DataPath(ToAnsi(pdfName))), &m_pdfPath));
    m_report->onNewPage = [this] { newPage(); };
    m_report->onPrintFooter = [this] { printFooter(); };
    const QString templatePath = HostPath(Site().DataRoot + "ItemsSold.vrd");
    m_loaded = m_report->LoadTemplate(templatePath);
    if (!m_loaded && UsesDefaultTemplateWhenMissing() && !QFileInfo::exists(templatePath))
        m_loaded = m_report->LoadTemplateText(ItemsSoldTemplateText());
    m_report->setFooterSection(QStringLiteral("Footer"));
    m_report->setMargins(0, 0);
}

void ItemsSoldEngine::fillCell(const char *section, const QString &cell, const QByteArray &value)
{
    if (ReportSection *found = m_report->section(QString::fromLatin1(section))) {
        if (ReportCell *target = found->cell(cell))
            target->value = FromAnsi(value);
    }
}

void ItemsSoldEngine::newPage()
{
    for (int index = 0; index < m_report->sectionCount(); ++index) {
        ReportSection *page = m_report->section(index);
        if (page->name.toLower() != QLatin1String("top"))
            continue;
        // The words stand as they are; the screen's dates aren't used here.
        for (const auto &[cell, text] : {std::pair{"T1", "FromDate"}, std::pair{"T2", "ToDate"}, std::pair{"T3", "Company Date"}}) {
            if (ReportCell *target = page->cell(QString::fromLatin1(cell)))
                target->text2 = QString::fromLatin1(text);
        }
        m_report->PrintSection(QStringLiteral("top"));
    }
}

void ItemsSoldEngine::printFooter()
{
    m_report->setFooterSection(QStringLiteral("Footer"));
    for (int index = 0; index < m_report->sectionCount(); ++index) {
        ReportSection *footer = m_report->section(index);
        if (footer->name.toLower() != QLatin1String("footer"))
            continue;
        if (ReportCell *number = footer->cell(QStringLiteral("T13")))
            number->value = QString::number(m_report->pageNumber());
        m_report->PrintSection(QStringLiteral("Footer"));
    }
}

} // namespace qlon
