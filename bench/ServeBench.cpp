// `qlon serve` measured on the demonstration site: the main report's page asked by 8 clients at
// once on loopback, each page a run of its own, against `qlon report main --format json` alone
// in the same run. "added_ms" is what the server adds to each report beyond the report command's
// own time (the goal: under 20 ms), "requests_per_second" the pages served a second, "ratio" the
// served report's time over the command's. "SortedPage" asks a finished report's page again,
// sorted, as its table's links do: the server's own share, against the same yardstick.
#include "bench/ChildRun.h"
#include "demo/DemoSite.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUrl>

#include <benchmark/benchmark.h>
#include <httplib.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace qlon::bench {
namespace {

constexpr int clients = 8;
const QString password = QStringLiteral("bench password");

// A demonstration site, an account and `qlon serve` on a free loopback port, for the whole run.
class ServedSite
{
public:
    ServedSite()
    {
        WriteDemoSite(drive(), QDate::currentDate());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.filePath(QStringLiteral("config")));
        QProcess user;
        user.setProcessEnvironment(environment);
        user.start(program(), {QStringLiteral("user"), QStringLiteral("add"), QStringLiteral("bench")});
        user.write((password + QLatin1Char('\n')).toUtf8());
        user.closeWriteChannel();
        if (!user.waitForFinished() || user.exitCode() != 0)
            throw std::runtime_error("qlon user add failed");
        m_server.setProcessEnvironment(environment);
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start(program(),
            {QStringLiteral("--drive"), QStringLiteral("C=") + drive(), QStringLiteral("serve"), QStringLiteral("--listen"),
                QStringLiteral("127.0.0.1:0")});
        while (m_server.waitForReadyRead(30000) && !m_server.canReadLine()) { }
        const QRegularExpressionMatch port = QRegularExpression(QStringLiteral(":(\\d+)/")).match(QString::fromUtf8(m_server.readLine()));
        if (!port.hasMatch())
            throw std::runtime_error("qlon serve did not start");
        m_port = port.captured(1).toInt();
        httplib::Client client("127.0.0.1", m_port);
        // The form's token comes with its page, in its cookie.
        const auto form = client.Get("/signin");
        const std::string token =
            form ? form->get_header_value("Set-Cookie").substr(0, form->get_header_value("Set-Cookie").find(';')) : "";
        const auto signedIn = client.Post("/signin", {{"Cookie", token}},
            "name=bench&password=" + QUrl::toPercentEncoding(password).toStdString() + "&csrf=" + token.substr(token.find('=') + 1),
            "application/x-www-form-urlencoded");
        if (!signedIn || signedIn->status != 303)
            throw std::runtime_error("can't sign in");
        m_cookie = signedIn->get_header_value("Set-Cookie").substr(0, signedIn->get_header_value("Set-Cookie").find(';'));
    }
    ~ServedSite()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }

    static QString program() { return qEnvironmentVariable("QLON_BENCH_PROGRAM", QStringLiteral(QLON_PROGRAM)); }
    QString drive() const { return m_folder.filePath(QStringLiteral("drive")); }

    // The page of the query once its report is done, asked again while it waits in the queue.
    std::string page(const std::string &query) const
    {
        httplib::Client client("127.0.0.1", m_port);
        client.set_read_timeout(600, 0);
        while (true) {
            const auto answer = client.Get(("/report?" + query).c_str(), {{"Cookie", m_cookie}});
            if (!answer || answer->status != 200)
                throw std::runtime_error("the report's page failed");
            if (answer->body.find("id=\"waiting\"") == std::string::npos)
                return answer->body;
        }
    }

private:
    QTemporaryDir m_folder;
    QProcess m_server;
    int m_port = 0;
    std::string m_cookie;
};

ServedSite &site()
{
    static ServedSite served;
    return served;
}

std::string freshTicket()
{
    QByteArray bytes(32, '\0');
    QRandomGenerator::global()->fillRange(reinterpret_cast<quint32 *>(bytes.data()), 8);
    return "report=main&ticket=" + bytes.toHex().toStdString();
}

// The wall time of `perClient` pages for each of the clients at once.
double servePages(int perClient, const std::function<std::string()> &query)
{
    QElapsedTimer clock;
    clock.start();
    std::vector<std::thread> threads;
    for (int client = 0; client < clients; ++client) {
        threads.emplace_back([perClient, &query] {
            for (int page = 0; page < perClient; ++page)
                benchmark::DoNotOptimize(site().page(query()));
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    return double(clock.nsecsElapsed()) / 1e9;
}

// The report command alone, as often: its wall time.
double runReports(int count)
{
    double seconds = 0;
    for (int run = 0; run < count; ++run) {
        seconds += RunChild(ServedSite::program(),
            {QStringLiteral("--drive"), QStringLiteral("C=") + site().drive(), QStringLiteral("report"), QStringLiteral("main"),
                QStringLiteral("--format"), QStringLiteral("json")})
                       .wallSeconds;
    }
    return seconds;
}

void report(benchmark::State &state, int pages, double served, double direct, int directRuns)
{
    state.counters["requests_per_second"] = pages / served;
    state.counters["served_ms"] = served / pages * 1000;
    state.counters["yardstick_ms"] = direct / directRuns * 1000;
    state.counters["ratio"] = (served / pages) / (direct / directRuns);
}

void ServedMainReport(benchmark::State &state)
{
    constexpr int perClient = 2;
    double served = 0;
    double direct = 0;
    for (auto _ : state) {
        const double wall = servePages(perClient, freshTicket);
        served += wall;
        direct += runReports(clients * perClient);
        state.SetIterationTime(wall);
    }
    const int pages = int(state.iterations()) * clients * perClient;
    report(state, pages, served, direct, pages);
    state.counters["added_ms"] = (served - direct) / pages * 1000;
}
BENCHMARK(ServedMainReport)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

void SortedPage(benchmark::State &state)
{
    constexpr int perClient = 50;
    const std::string query = freshTicket();
    site().page(query);
    double served = 0;
    double direct = 0;
    for (auto _ : state) {
        const double wall = servePages(perClient, [&query] { return query + "&sort=units&order=desc"; });
        served += wall;
        direct += runReports(1);
        state.SetIterationTime(wall);
    }
    report(state, int(state.iterations()) * clients * perClient, served, direct, int(state.iterations()));
}
BENCHMARK(SortedPage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
} // namespace qlon::bench

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
