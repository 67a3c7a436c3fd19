#include "itemssold/logic/CatalogueScan.h"

#include "core/Conversions.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "core/ListRows.h"
#include "core/RecordFile.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/SiteConfig.h"

#include <algorithm>

namespace qlon {

namespace {

constexpr int buttonRecords = 12;
constexpr int drinkFileCount = 6;

QString sitePath(const QByteArray &relative)
{
    return HostPath(Site().DataRoot + relative);
}

// A title that names something: not empty and not the spelling of a free slot.
bool isTitled(const ItemRec500 &item)
{
    const QByteArray title = item.trimmedField(ItemRec500::ButtonTitle);
    return !title.isEmpty() && title != "Avaliable";
}

bool isPriced(const ItemRec500 &item)
{
    return NumericValue(item.field(ItemRec500::Price)) != 0;
}

QByteArray rowOf(const ItemRec500 &item, ItemRec500::Field name, char itemClass)
{
    return item.field(name) + '|' + item.field(ItemRec500::Price) + '|' + itemClass + '|' + item.field(ItemRec500::Department);
}

class Scan
{
public:
    explicit Scan(ScanProgress &progress)
        : m_progress(progress)
    {
    }

    void buttons();
    void modifiers();
    void drinks();
    void retail();

    CatalogueRows result;

private:
    bool stop()
    {
        result.stopped = result.stopped || m_progress.stopRequested();
        return result.stopped;
    }

    ScanProgress &m_progress;
};

// Records 1 to 12 of every button file, however long it is.
void Scan::buttons()
{
    m_progress.setMaximum(ButtonFileCount);
    for (int index = 0; index < ButtonFileCount && !stop(); ++index) {
        m_progress.setValue(index);
        CloseAll();
        const QString path = sitePath(ButtonFile(index).items);
        if (!FileExists(path))
            continue;
        RecordFile file(path, ItemRec500::size);
        for (int number = 1; number <= buttonRecords; ++number) {
            const ItemRec500 item(file.GetRecord(number));
            if (!isTitled(item))
                continue;
            result.rows.append(rowOf(item, ItemRec500::ReceiptText, 'F'));
            if (stop())
                return;
        }
    }
}

// A modifier list counts only beside its recipe file; a modifier without a price drops out.
void Scan::modifiers()
{
    m_progress.setMaximum(ModifierFileCount);
    for (int index = 0; index < ModifierFileCount; ++index) {
        m_progress.setValue(index);
        const CatalogueFile lists = ModifierFile(index);
        if (!FileExists(sitePath(lists.items)) || !FileExists(sitePath(lists.recipes)))
            continue;
        RecordFile file(sitePath(lists.items), ItemRec500::size);
        const qint32 count = file.CountRecords();
        for (int number = 1; number <= count; ++number) {
            const ItemRec500 item(file.GetRecord(number));
            if (isTitled(item) && item.field(ItemRec500::ButtonTitle).left(5) != "Avali" && isPriced(item))
                result.rows.append(rowOf(item, ItemRec500::ButtonTitle, 'F'));
        }
    }
}

// A drink is found under its receipt text, and under its button title too when that differs.
void Scan::drinks()
{
    const auto files = LiquorFiles();
    for (int index = 0; index < drinkFileCount; ++index) {
        const QString path = sitePath(files[index].items);
        if (!FileExists(path))
            continue;
        RecordFile file(path, ItemRec500::size);
        const qint32 count = file.CountRecords();
        m_progress.setMaximum(count);
        for (int number = 1; number <= count; ++number) {
            m_progress.setValue(number);
            const ItemRec500 item(file.GetRecord(number));
            if (!isTitled(item) || !isPriced(item))
                continue;
            result.rows.append(rowOf(item, ItemRec500::ReceiptText, 'L'));
            if (item.trimmedField(ItemRec500::ButtonTitle) != item.trimmedField(ItemRec500::ReceiptText))
                result.rows.append(rowOf(item, ItemRec500::ButtonTitle, 'L'));
        }
    }
}

void Scan::retail()
{
    const QString path = sitePath(RetailFile().items);
    if (!FileExists(path))
        return;
    RecordFile file(path, ItemRec500::size);
    const qint32 count = file.CountRecords();
    m_progress.setMaximum(count);
    for (int number = 1; number <= count && !stop(); ++number) {
        m_progress.setValue(number);
        const ItemRec500 item(file.GetRecord(number));
        if (isTitled(item) && isPriced(item))
            result.rows.append(rowOf(item, ItemRec500::ReceiptText, 'R'));
    }
}

} // namespace

CatalogueRows ReadCatalogue(const ReportOptions &options, ScanProgress &progress)
{
    CloseAll();
    Scan scan(progress);
    if (!options.bar && !options.retail) {
        scan.buttons();
        if (!scan.result.stopped)
            scan.modifiers();
    }
    if (!scan.result.stopped && !options.food && !options.retail)
        scan.drinks();
    if (!scan.result.stopped && !options.food && !options.bar && !options.both)
        scan.retail();
    CloseAll();
    return scan.result;
}

void RemoveDuplicates(QByteArrayList &sortedRows)
{
    sortedRows.erase(std::unique(sortedRows.begin(), sortedRows.end()), sortedRows.end());
}

QByteArrayList SortedCatalogue(const QByteArrayList &rows)
{
    ListRows list;
    for (const QByteArray &row : rows)
        list.addRow(row);
    list.setSortKey("0a ");
    list.setSorted(true);
    QByteArrayList sorted;
    for (int row = 0; row < list.rowCount(); ++row)
        sorted.append(list.rowText(row));
    RemoveDuplicates(sorted);
    return sorted;
}

} // namespace qlon
