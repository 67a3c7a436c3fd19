#pragma once

#include "web/logic/Accounts.h"
#include "web/logic/Html.h"
#include "web/logic/ReportForm.h"
#include "web/logic/ReportQueue.h"
#include "web/logic/Sessions.h"
#include "web/logic/SignInGuard.h"

#include <QDateTime>
#include <QString>

#include <string>

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

namespace httplib {
class Server;
struct Request;
struct Response;
} // namespace httplib

namespace qlon::web {

struct ServeOptions
{
    QString host = QStringLiteral("127.0.0.1");
    int port = 8470; // 0: any free port, told on standard output
    QString certificateFile; // both set: TLS
    QString keyFile;
    QString accountsFile;
    std::chrono::seconds reportTimeLimit{120};

    bool tls() const { return !certificateFile.isEmpty(); }
};

// The report server: sign-in, the report pages and their downloads, each report run through the
// queue. The HTTP itself is cpp-httplib's; every route but sign-in and the style sheet needs a
// session.
class WebServer
{
public:
    WebServer(const ServeOptions &options, ReportQueue &queue);
    ~WebServer();

    // Binds the address; an error text, or empty.
    QString bind();
    int port() const { return m_port; }
    // Serves until stop(); false when the server could not run.
    bool run();
    void stop();

private:
    using Request = httplib::Request;
    using Response = httplib::Response;

    void setLimits();
    void setRoutes();
    bool admits(const Request &request, Response &response);
    std::optional<Session> sessionOf(const Request &request);
    Accounts accounts();
    std::optional<Role> verify(const QString &name, const QString &password);

    void showSignIn(const Request &request, Response &response);
    // The sign-in form with the browser's token, or a new one, in its cookie and in the form.
    void sendSignIn(const Request &request, Response &response, const QString &note, int status);
    std::string cookieText(const std::string &name, const QString &value) const;
    void signIn(const Request &request, Response &response);
    void signOut(const Request &request, Response &response);
    void showForm(const Request &request, Response &response);
    void showReport(const Request &request, Response &response);
    void download(const Request &request, Response &response);
    // The site's departments, for the report form; none when the file can't be read now.
    QStringList reportDepartments();
    QString reportForm(const FormFields &fields, const QString &ticket);
    // The session of a manager; a viewer is refused here.
    std::optional<Session> managerOf(const Request &request, Response &response);
    void showDepartments(const Request &request, Response &response);
    void changeDepartments(const Request &request, Response &response);
    // The departments page with the rows the site's file now holds.
    void sendDepartments(Response &response, const PageUser &user, const QString &note, int status);

    ServeOptions m_options;
    ReportQueue &m_queue;
    std::unique_ptr<httplib::Server> m_server;
    int m_port = 0;
    Sessions m_sessions;
    SignInGuard m_guard;
    // One Argon2id check at a time: each takes 64 MiB.
    std::mutex m_verifying;
    std::mutex m_accountsMutex;
    // The program's file table and drive mapping are one per process: one reader or writer of
    // the site at a time.
    std::mutex m_siteMutex;
    std::optional<Accounts> m_accounts;
    QDateTime m_accountsRead;
};

} // namespace qlon::web
