// A report template through the engine: loaded, then every section printed down the pages.
#include "fuzz/FuzzSite.h"
#include "ui/Report.h"

namespace {

class NoOutput : public qlon::ReportOutput
{
public:
    double pageHeight() const override { return 792; }
    void beginPage(int) override { }
    void printSection(const qlon::ReportSection &, double) override { }
    void finish() override { }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/ItemsSold.vrd"), data, size);
    return qlon::fuzz::Survive([&] {
        qlon::Report report(std::make_unique<NoOutput>());
        report.onNewPage = [&] { report.PrintSection(QStringLiteral("top")); };
        if (!report.LoadTemplate(path))
            return;
        for (int repeat = 0; repeat < 3; ++repeat) {
            for (int index = 0; index < report.sectionCount(); ++index)
                report.PrintSection(report.section(index)->name);
        }
        report.EndReport();
    });
}
