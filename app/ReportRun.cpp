#include "app/ReportRun.h"

#include "app/ControlKinds.h"
#include "app/ReportJson.h"
#include "app/ReportSalesByTime.h"
#include "app/ScriptRunner.h"
#include "store/ReportTemplate.h"
#include "store/SiteConfig.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"

#include <QBuffer>
#include <QWidget>

namespace qlon {

namespace {

const QString mainScreen = QStringLiteral("QLONlistBuilder1");

} // namespace

ReportRun::ReportRun(const ReportRequest &request, QTextStream &out, QTextStream &err)
    : m_request(request)
    , m_out(out)
    , m_err(err)
    , m_figures(&m_printed)
{
    // Named once, so that the file checked is the file written, midnight or not.
    for (QString *file : {&m_request.pdf, &m_request.csv}) {
        if (!file->isEmpty())
            *file = DatedName(*file);
    }
    m_heading = HeadingOf(m_request, {}, {}, {});
    // However the program ends from here on, the figures gathered so far are printed.
    SetProgramEndHook([this](int status, const RuntimeError *failure) {
        finish(status, failure ? failure->message().simplified() : QString());
        m_out.flush();
    });
}

ReportRun::~ReportRun()
{
    SetProgramEndHook({});
}

int ReportRun::refusalOnSite()
{
    const ReportRefusal refusal = CheckReportOnSite(m_request);
    if (refusal.status == 0)
        return 0;
    m_err << "qlon: report: " << refusal.text << Qt::endl;
    return m_request.json ? finish(refusal.status, refusal.text) : refusal.status;
}

int ReportRun::run()
{
    // Dates left open are those the main screen started with: the site's start dates.
    QWidget *main = Screens().existing(mainScreen);
    const auto started = [main](const char *calendar) { return CaptionOf(main->findChild<QWidget *>(QLatin1String(calendar))); };
    const QString from = m_request.from.isEmpty() ? started("MonthView1") : m_request.from;
    const QString to = m_request.to.isEmpty() ? started("MonthView2") : m_request.to;
    QByteArray script = ReportScript(m_request, from, to).toUtf8();
    if (m_request.printScript) {
        m_out << script;
        return 0;
    }
    m_heading = HeadingOf(m_request, NameOfSite(), ReportDay(from), ReportDay(to));
    for (const QString &file : {m_request.pdf, m_request.csv}) {
        if (!file.isEmpty())
            m_filesBefore.append({file, StampOf(file)});
    }
    QBuffer lines(&script);
    lines.open(QIODevice::ReadOnly);
    UseDefaultTemplateWhenMissing(true);
    const int status = ScriptRunner(m_figures, m_err).run(lines);
    const QString unwritten = status == 0 ? unwrittenFile() : QString();
    if (!unwritten.isEmpty()) {
        const QString failure = QStringLiteral("%1 was not written").arg(unwritten);
        m_err << "qlon: report: " << failure << Qt::endl;
        return finish(1, failure);
    }
    return finish(status, {});
}

// Prints the figures once, as text or JSON.
int ReportRun::finish(int status, const QString &failure)
{
    SetProgramEndHook({});
    m_figures.flush();
    if (m_request.json)
        m_out << WithSalesByTime(m_request, status, ReportJson(m_request, m_heading, m_printed, status, failure));
    else if (!m_printed.isEmpty())
        m_out << m_heading.lines().join(QLatin1Char('\n')) << '\n' << m_printed;
    return status;
}

// A file of the request that is as it was before the run; empty when the run wrote every one.
QString ReportRun::unwrittenFile() const
{
    for (const auto &[file, before] : m_filesBefore) {
        const FileStamp after = StampOf(file);
        if (after.size < 0 || after == before)
            return file;
    }
    return {};
}

} // namespace qlon
