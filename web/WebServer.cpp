#include "web/WebServer.h"

#include "web/ConnectionPool.h"

#include "web/logic/DepartmentsPage.h"
#include "web/logic/Pages.h"
#include "web/logic/SiteDepartments.h"
#include "web/logic/XlsxReport.h"

#include "core/RuntimeError.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTextStream>

#include <httplib.h>

namespace qlon::web {

namespace {

constexpr std::size_t largestBody = 64 * 1024;
constexpr std::size_t workers = 32; // the connections served at once
constexpr time_t clientSeconds = 5; // the longest wait on a client's bytes
constexpr std::chrono::seconds pageWait{3}; // a page waits this long for its report before it shows the queue
const std::string sessionCookie = "qlon_session";
// The sign-in form's token, which the form sends back as its own copy: a page of another site
// can't sign a browser in under a name of its choosing.
const std::string signInCookie = "qlon_signin";
const std::string htmlType = "text/html; charset=utf-8";

std::string utf8(const QString &text)
{
    return text.toStdString();
}

QString fromUtf8(const std::string &text)
{
    return QString::fromStdString(text);
}

FormFields fieldsOf(const httplib::Request &request)
{
    FormFields fields;
    for (const auto &[name, value] : request.params) {
        if (!fields.contains(fromUtf8(name)))
            fields.insert(fromUtf8(name), fromUtf8(value));
    }
    return fields;
}

void sendPage(httplib::Response &response, const QString &page, int status = 200)
{
    response.status = status;
    response.set_content(utf8(page), htmlType);
}

QString cookieOf(const httplib::Request &request, const std::string &name)
{
    const std::string header = request.get_header_value("Cookie");
    const std::string prefix = name + '=';
    std::size_t start = 0;
    while (start < header.size()) {
        while (start < header.size() && header[start] == ' ')
            ++start;
        const std::size_t end = std::min(header.find(';', start), header.size());
        if (header.compare(start, prefix.size(), prefix) == 0)
            return fromUtf8(header.substr(start + prefix.size(), end - start - prefix.size()));
        start = end + 1;
    }
    return {};
}

bool isToken(const QString &text)
{
    static const QRegularExpression hex(QStringLiteral("^[0-9a-f]{64}$"));
    return hex.match(text).hasMatch();
}

// What a browser may be told of a run that gave no figures; the whole of it goes to the log.
QString failureOf(const ReportOutcome &outcome)
{
    const QString askAdministrator = QStringLiteral(" Ask the administrator to read the log.");
    if (outcome.timedOut)
        return QStringLiteral("The report ran out of time.") + askAdministrator;
    // A refused request names what was wrong with it, such as an unknown department; a path
    // never reaches a browser.
    static const QRegularExpression refusal(QStringLiteral("^qlon: report: ([^/\\\\]*)$"), QRegularExpression::MultilineOption);
    if (const QRegularExpressionMatch match = refusal.match(outcome.log); outcome.status == 2 && match.hasMatch())
        return match.captured(1);
    // The server screen's list of servers lacks the number asked for.
    if (outcome.status == 2 && outcome.log.contains(QLatin1String("QLONserverLiquor.Combo1 has no entry")))
        return QStringLiteral("The site has no server of that number.");
    return QStringLiteral("The report could not be run.") + askAdministrator;
}

void logFailure(const QStringList &arguments, const ReportOutcome &outcome)
{
    QTextStream(stderr) << "qlon serve: report " << arguments.join(QLatin1Char(' ')) << " ended with status " << outcome.status
                        << (outcome.timedOut ? " (time limit)" : "") << ": " << outcome.log.trimmed() << Qt::endl;
}

// A form whose token is not the session's, as one a page of another site would send.
void refuseExpiredForm(httplib::Response &response, const PageUser &user)
{
    sendPage(response, HtmlPage(QStringLiteral("Refused"), QStringLiteral("<p>The form has expired: load the page again.</p>"), user), 403);
}

// A browser is told the platform's message alone; the file it names goes to the log.
void logSiteError(const QString &doing, const RuntimeError &error)
{
    QTextStream(stderr) << "qlon serve: " << doing << ": " << error.description() << ": " << error.detail() << Qt::endl;
}

struct Download
{
    const char *type;
    ReportJob::File file;
};

std::optional<Download> downloadOf(const std::string &kind)
{
    if (kind == "csv")
        return Download{"text/csv", ReportJob::File::Csv};
    if (kind == "pdf")
        return Download{"application/pdf", ReportJob::File::Pdf};
    if (kind == "xlsx")
        return Download{"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet", ReportJob::File::None};
    return std::nullopt;
}

} // namespace

WebServer::WebServer(const ServeOptions &options, ReportQueue &queue)
    : m_options(options)
    , m_queue(queue)
{
    if (m_options.tls())
        m_server = std::make_unique<httplib::SSLServer>(
            m_options.certificateFile.toLocal8Bit().constData(), m_options.keyFile.toLocal8Bit().constData());
    else
        m_server = std::make_unique<httplib::Server>();
    setLimits();
    setRoutes();
}

WebServer::~WebServer() = default;

void WebServer::setLimits()
{
    m_server->new_task_queue = [] { return new ConnectionPool(workers); };
    m_server->set_payload_max_length(largestBody);
    m_server->set_read_timeout(clientSeconds, 0);
    m_server->set_write_timeout(clientSeconds, 0);
    m_server->set_keep_alive_timeout(clientSeconds);
    httplib::Headers headers = {
        {"Content-Security-Policy",
            "default-src 'none'; style-src 'self'; img-src 'self'; form-action 'self'; frame-ancestors 'none'; base-uri 'none'"},
        {"X-Frame-Options", "DENY"}, {"Referrer-Policy", "no-referrer"}, {"X-Content-Type-Options", "nosniff"},
        {"Cache-Control", "no-store"}};
    if (m_options.tls())
        headers.emplace("Strict-Transport-Security", "max-age=31536000");
    m_server->set_default_headers(headers);
}

void WebServer::setRoutes()
{
    m_server->set_pre_routing_handler([this](const Request &request, Response &response) {
        return admits(request, response) ? httplib::Server::HandlerResponse::Unhandled : httplib::Server::HandlerResponse::Handled;
    });
    m_server->set_error_handler([](const Request &, Response &response) {
        if (response.body.empty())
            sendPage(response, HtmlPage(QStringLiteral("Not here"), QStringLiteral("<p>There is no such page.</p>"), {}), response.status);
    });
    m_server->set_exception_handler([](const Request &request, Response &response, std::exception_ptr error) {
        try {
            std::rethrow_exception(error);
        } catch (const std::exception &exception) {
            QTextStream(stderr) << "qlon serve: " << fromUtf8(request.path) << ": " << exception.what() << Qt::endl;
        } catch (...) {
            QTextStream(stderr) << "qlon serve: " << fromUtf8(request.path) << ": an unknown exception" << Qt::endl;
        }
        sendPage(response, HtmlPage(QStringLiteral("Error"), QStringLiteral("<p>Ask the administrator to read the log.</p>"), {}), 500);
    });
    m_server->Get("/style.css", [](const Request &, Response &response) {
        const QByteArray sheet = StyleSheet();
        response.set_content(sheet.constData(), std::size_t(sheet.size()), "text/css");
    });
    m_server->Get("/signin", [this](const Request &request, Response &response) { showSignIn(request, response); });
    m_server->Post("/signin", [this](const Request &request, Response &response) { signIn(request, response); });
    m_server->Post("/signout", [this](const Request &request, Response &response) { signOut(request, response); });
    m_server->Get("/", [this](const Request &request, Response &response) { showForm(request, response); });
    m_server->Get("/report", [this](const Request &request, Response &response) { showReport(request, response); });
    m_server->Get("/download/([a-z]+)", [this](const Request &request, Response &response) { download(request, response); });
    m_server->Get("/departments", [this](const Request &request, Response &response) { showDepartments(request, response); });
    m_server->Post("/departments", [this](const Request &request, Response &response) { changeDepartments(request, response); });
}

// Every route but sign-in and the style sheet needs a session: without one, a page is a redirect
// to sign-in and a download is refused.
bool WebServer::admits(const Request &request, Response &response)
{
    if (request.path == "/signin" || request.path == "/style.css" || sessionOf(request))
        return true;
    if (request.path.starts_with("/download/")) {
        response.status = 401;
        response.set_content("Sign in first.\n", "text/plain");
        return false;
    }
    response.set_redirect("/signin", 303);
    return false;
}

std::optional<Session> WebServer::sessionOf(const Request &request)
{
    const QString id = cookieOf(request, sessionCookie);
    if (!isToken(id))
        return std::nullopt;
    std::optional<Session> session = m_sessions.find(id, std::chrono::steady_clock::now());
    // A person removed from the accounts is signed out at once.
    if (session && !accounts().contains(session->name)) {
        m_sessions.close(id);
        return std::nullopt;
    }
    return session;
}

// The accounts as the file now holds them, read again when it changed.
Accounts WebServer::accounts()
{
    const std::lock_guard lock(m_accountsMutex);
    const QDateTime changed = QFileInfo(m_options.accountsFile).lastModified();
    if (!m_accounts || changed != m_accountsRead) {
        m_accounts.emplace(m_options.accountsFile);
        if (const QString error = m_accounts->load(); !error.isEmpty())
            QTextStream(stderr) << "qlon serve: " << error << Qt::endl;
        m_accountsRead = changed;
    }
    return *m_accounts;
}

std::optional<Role> WebServer::verify(const QString &name, const QString &password)
{
    const Accounts current = accounts();
    const std::lock_guard lock(m_verifying);
    return current.verify(name, password);
}

void WebServer::showSignIn(const Request &request, Response &response)
{
    if (sessionOf(request))
        response.set_redirect("/", 303);
    else
        sendSignIn(request, response, {}, 200);
}

void WebServer::sendSignIn(const Request &request, Response &response, const QString &note, int status)
{
    // A browser keeps its token while it has one: the page's own requests, such as its icon's,
    // come to the sign-in page too, and a new token would leave the form's behind.
    QString token = cookieOf(request, signInCookie);
    if (!isToken(token))
        token = Sessions::RandomToken();
    response.set_header("Set-Cookie", cookieText(signInCookie, token));
    sendPage(response, SignInPage(note, token), status);
}

std::string WebServer::cookieText(const std::string &name, const QString &value) const
{
    return name + '=' + utf8(value) + "; Path=/; HttpOnly; SameSite=Strict" + (m_options.tls() ? "; Secure" : "");
}

void WebServer::signIn(const Request &request, Response &response)
{
    const QString name = fromUtf8(request.get_param_value("name"));
    const QString password = fromUtf8(request.get_param_value("password"));
    const QString address = fromUtf8(request.remote_addr);
    const Moment now = std::chrono::steady_clock::now();
    const QString token = cookieOf(request, signInCookie);
    if (!isToken(token) || fromUtf8(request.get_param_value("csrf")) != token) {
        sendSignIn(request, response, QStringLiteral("The form has expired: sign in again."), 403);
        return;
    }
    if (m_guard.locked(name, address, now)) {
        sendSignIn(request, response, QStringLiteral("Too many failed sign-ins: try again in a minute."), 429);
        return;
    }
    const std::optional<Role> role = verify(name, password);
    if (!role) {
        m_guard.failed(name, address, now);
        // The name is the client's text: one that no account could have is not written out.
        QTextStream(stderr) << "qlon serve: a failed sign-in as " << (Accounts::IsValidName(name) ? name : QStringLiteral("(no name)"))
                            << " from " << address << Qt::endl;
        sendSignIn(request, response, QStringLiteral("Wrong name or password."), 401);
        return;
    }
    m_guard.succeeded(name, address);
    response.set_header("Set-Cookie", cookieText(sessionCookie, m_sessions.open(name, *role, now).id));
    response.set_redirect("/", 303);
}

void WebServer::signOut(const Request &request, Response &response)
{
    const std::optional<Session> session = sessionOf(request);
    if (!session || fromUtf8(request.get_param_value("csrf")) != session->csrfToken) {
        refuseExpiredForm(response, {});
        return;
    }
    m_sessions.close(session->id);
    response.set_header("Set-Cookie", sessionCookie + "=; Path=/; HttpOnly; SameSite=Strict; Max-Age=0");
    response.set_redirect("/signin", 303);
}

void WebServer::showForm(const Request &request, Response &response)
{
    const Session session = *sessionOf(request);
    QString body = reportForm({{QStringLiteral("report"), QStringLiteral("main")}}, Sessions::RandomToken());
    if (session.role == Role::Manager)
        body += QStringLiteral("<p><a href=\"/departments\" id=\"departments-link\">The departments list</a></p>");
    sendPage(response, HtmlPage(QStringLiteral("Reports"), body, {session.name, session.csrfToken}));
}

void WebServer::showReport(const Request &request, Response &response)
{
    const Session session = *sessionOf(request);
    const PageUser user{session.name, session.csrfToken};
    FormFields fields = fieldsOf(request);
    const QString ticket = fields.value(QStringLiteral("ticket"));
    const ReportChoice choice = ReadReportForm(fields, QDate::currentDate());
    if (!isToken(ticket)) {
        // A report's address without its page's ticket, as a bookmark, is a new run.
        response.set_redirect(utf8(QStringLiteral("/report?%1&ticket=%2").arg(choice.query, Sessions::RandomToken())), 303);
        return;
    }
    const QString form = reportForm(fields, ticket);
    if (!choice.error.isEmpty()) {
        sendPage(response, FailurePage(form, choice.error, user), 400);
        return;
    }
    m_queue.submit(ticket + choice.query, {choice.arguments, ReportJob::File::None});
    const ReportQueue::State state = m_queue.await(ticket + choice.query, pageWait);
    if (state.phase == ReportQueue::State::Phase::Full) {
        sendPage(response, FailurePage(form, QStringLiteral("Too many reports are waiting: try again in a minute."), user), 503);
    } else if (state.phase != ReportQueue::State::Phase::Done) {
        sendPage(response, WaitingPage(form, state.ahead, user));
    } else if (state.outcome->status != 0) {
        logFailure(choice.arguments, *state.outcome);
        sendPage(response, FailurePage(form, failureOf(*state.outcome), user), 500);
    } else {
        const QJsonObject report = QJsonDocument::fromJson(state.outcome->output).object();
        sendPage(response, ResultPage(form, report, fields, choice.query + QStringLiteral("&ticket=") + ticket, user));
    }
}

void WebServer::download(const Request &request, Response &response)
{
    const FormFields fields = fieldsOf(request);
    const QString ticket = fields.value(QStringLiteral("ticket"));
    const ReportChoice choice = ReadReportForm(fields, QDate::currentDate());
    const std::optional<Download> kind = downloadOf(request.matches[1]);
    if (!kind || !isToken(ticket) || !choice.error.isEmpty() ||
        (kind->file == ReportJob::File::Csv && choice.report != QLatin1String("main"))) {
        response.status = 400;
        response.set_content("No such download.\n", "text/plain");
        return;
    }
    const QString key = ticket + QString::fromLatin1(request.matches[1].str()) + choice.query;
    const QString jobKey = kind->file == ReportJob::File::None ? ticket + choice.query : key;
    m_queue.submit(jobKey, {choice.arguments, kind->file});
    const ReportQueue::State state = m_queue.await(jobKey, m_options.reportTimeLimit * 2);
    if (state.phase != ReportQueue::State::Phase::Done || state.outcome->status != 0) {
        if (state.outcome)
            logFailure(choice.arguments, *state.outcome);
        response.status = 503;
        response.set_content(
            utf8(state.outcome ? failureOf(*state.outcome) : QStringLiteral("The reports are busy: try again.")) + '\n', "text/plain");
        return;
    }
    const std::string name = utf8(choice.report) + '.' + request.matches[1].str();
    response.set_header("Content-Disposition", "attachment; filename=\"" + name + '"');
    if (kind->file == ReportJob::File::None) {
        const QByteArray workbook = XlsxReport(QJsonDocument::fromJson(state.outcome->output).object());
        response.set_content(workbook.constData(), std::size_t(workbook.size()), kind->type);
    } else {
        response.set_content(state.outcome->output.constData(), std::size_t(state.outcome->output.size()), kind->type);
    }
}

QStringList WebServer::reportDepartments()
{
    const std::lock_guard lock(m_siteMutex);
    try {
        return FormDepartments();
    } catch (const RuntimeError &error) {
        logSiteError(QStringLiteral("reading the departments"), error);
        return {};
    }
}

QString WebServer::reportForm(const FormFields &fields, const QString &ticket)
{
    return ReportFormHtml(fields, ticket, reportDepartments());
}

std::optional<Session> WebServer::managerOf(const Request &request, Response &response)
{
    std::optional<Session> session = sessionOf(request);
    if (session && session->role == Role::Manager)
        return session;
    sendPage(response, HtmlPage(QStringLiteral("Refused"), QStringLiteral("<p>The departments list is for managers.</p>"), {}), 403);
    return std::nullopt;
}

void WebServer::showDepartments(const Request &request, Response &response)
{
    if (const std::optional<Session> session = managerOf(request, response))
        sendDepartments(response, {session->name, session->csrfToken}, {}, 200);
}

void WebServer::sendDepartments(Response &response, const PageUser &user, const QString &note, int status)
{
    QByteArrayList rows;
    {
        const std::lock_guard lock(m_siteMutex);
        try {
            rows = DepartmentEditorRows();
        } catch (const RuntimeError &error) {
            logSiteError(QStringLiteral("reading the departments"), error);
            sendPage(response,
                HtmlPage(
                    QStringLiteral("Departments"), QStringLiteral("<p class=\"error\">%1</p>").arg(Escaped(error.description())), user),
                503);
            return;
        }
    }
    sendPage(response, DepartmentsPage(rows, note, user), status);
}

// Each change writes the whole file through the departments editor's own writer, the store's
// crash-safe replace; a file a station holds is left as it is, with the platform's message.
void WebServer::changeDepartments(const Request &request, Response &response)
{
    const std::optional<Session> session = managerOf(request, response);
    if (!session)
        return;
    const PageUser user{session->name, session->csrfToken};
    if (fromUtf8(request.get_param_value("csrf")) != session->csrfToken) {
        refuseExpiredForm(response, user);
        return;
    }
    const DepartmentsChange change = ChangeDepartments(fieldsOf(request));
    if (!change.error.isEmpty()) {
        sendDepartments(response, user, QStringLiteral("Not saved: ") + change.error + QLatin1Char('.'), 400);
        return;
    }
    try {
        const std::lock_guard lock(m_siteMutex);
        SaveDepartmentRows(change.rows);
    } catch (const RuntimeError &error) {
        logSiteError(QStringLiteral("saving the departments"), error);
        sendDepartments(response, user, QStringLiteral("Not saved: ") + error.description() + QLatin1Char('.'), 503);
        return;
    }
    QTextStream(stderr) << "qlon serve: " << session->name << " saved the departments list" << Qt::endl;
    response.set_redirect("/departments", 303);
}

QString WebServer::bind()
{
    const std::string host = utf8(m_options.host);
    if (!m_server->is_valid())
        return QStringLiteral("the TLS certificate or key can't be read");
    if (m_options.port == 0)
        m_port = m_server->bind_to_any_port(host);
    else
        m_port = m_server->bind_to_port(host, m_options.port) ? m_options.port : -1;
    if (m_port <= 0)
        return QStringLiteral("can't listen on %1:%2").arg(m_options.host).arg(m_options.port);
    return {};
}

bool WebServer::run()
{
    return m_server->listen_after_bind();
}

void WebServer::stop()
{
    m_server->stop();
}

} // namespace qlon::web
