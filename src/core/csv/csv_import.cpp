#include "csv/csv_import.h"

#include "cashbook/cash_closing.h"
#include "cashbook/day_seal.h"
#include "cashbook/journal_keeping.h"
#include "cashbook/movement_batch.h"
#include "cashbook/seal_record.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "csv/csv_table.h"
#include "csv/import_digest.h"
#include "csv/import_reasons.h"
#include "csv/import_rows.h"
#include "csv/taken_imports.h"
#include "journal/journal.h"
#include "movements/cash_day.h"
#include "movements/opening_difference.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "platform/work.h"
#include "platform/work_watch.h"

#include <QFileInfo>

#include <algorithm>
#include <set>

namespace lorvan {
namespace {

constexpr qint64 rowsBetweenProgress = 256;
constexpr qint64 settlingShare = 4; // for the progress: settling the days takes about a quarter of the time of reading

class Import {
public:
    Import(Connection& book, const Authority& authority, const QString& folder, ClosedDays closedDays,
        const StepProgress& progress);

    [[nodiscard]] CsvImportOutcome run();
    /// The days that were changed. Of sealed ones that did not hold what was sealed, the journal gets its rows.
    [[nodiscard]] ImportedDays days(const Authority& authority) const;
    [[nodiscard]] QString digest() const { return m_digest.text(); } ///< A digest of everything that run() has read.

private:
    using TakeRow = void (Import::*)(const CsvTable& row);

    void noteWhatIsThere();
    void readFile(const char* name, const std::vector<CsvColumn>& columns, TakeRow take);
    void readRows(CsvTable& table, const std::vector<CsvColumn>& columns, TakeRow take);
    [[nodiscard]] bool takeNext(CsvTable& table, const std::vector<CsvColumn>& columns, TakeRow take);
    void noteBad(qint64 line, const QString& reason);
    void tellProgress(qint64 done) const;

    void takeGroup(const CsvTable& row);
    void takeCode(const CsvTable& row);
    void takeMovement(const CsvTable& row);
    void takeOpening(const CsvTable& row);
    void takeCounter(const CsvTable& row);

    [[nodiscard]] MovementCode codeIn(const CsvTable& row);
    void giveGroup(MovementCode& code, const CsvTable& row) const;
    [[nodiscard]] qint32 groupNamed(const QString& name) const;
    [[nodiscard]] std::optional<MovementRefusal> enter(const MovementDraft& draft);
    void enterOpening(QDate day, Currency amount);

    [[nodiscard]] QString pathOf(const char* name) const { return m_folder + u'/' + QString::fromLatin1(name); }
    [[nodiscard]] bool isAllGood() const { return m_outcome.badLineCount == 0; }

    Connection& m_book;
    QString m_folder;
    const StepProgress& m_progress;
    const ClosedDays m_closedDays;
    MovementBatch m_batch;
    const OpeningDifferences m_openingBefore;
    CsvImportOutcome m_outcome;
    std::map<qint32, QString> m_groups; ///< Name by number.
    std::set<QString> m_groupNamesBefore;
    std::set<QString> m_codeNamesBefore;
    std::set<qint32> m_badCodes; ///< Their movements are not reported as bad too.
    ImportDigest m_digest;
    QString m_file;
    bool m_fileIsLost = false;
    qint64 m_bytesBefore = 0;
    qint64 m_bytesInAll = 0;
};

Import::Import(Connection& book, const Authority& authority, const QString& folder, ClosedDays closedDays,
    const StepProgress& progress)
    : m_book(book)
    , m_folder(folder)
    , m_progress(progress)
    , m_closedDays(closedDays)
    , m_batch(book, book, closedDays == ClosedDays::Accept ? authority : authority.without(Right::ModifyCash))
    , m_openingBefore(openingDifferences(book))
{
    for (const char* const name : {import_files::groups, import_files::codes, import_files::movements})
        m_bytesInAll += QFileInfo(pathOf(name)).size();
}

CsvImportOutcome Import::run()
{
    noteWhatIsThere();
    readFile(import_files::groups, groupColumns, &Import::takeGroup);
    readFile(import_files::codes, codeColumns, &Import::takeCode);
    readFile(import_files::movements, movementColumns, &Import::takeMovement);
    readFile(import_files::openingDifferences, openingColumns, &Import::takeOpening);
    readFile(import_files::counters, counterColumns, &Import::takeCounter);
    if (isAllGood()) {
        m_outcome.repeatedMovements = m_batch.settle([this](qint64 done, qint64 days) {
            tellProgress(m_bytesInAll + m_bytesInAll / settlingShare * done / days);
        });
    }
    return std::move(m_outcome);
}

ImportedDays Import::days(const Authority& authority) const
{
    const std::vector<QDate> all = m_batch.days();
    ImportedDays changed{all.empty() ? QDate() : all.front(), {}, m_openingBefore};
    for (const QDate day : all) {
        const auto seal = lastSealOf(m_book, day);
        if (seal && holdsSeal(m_book, *seal, m_batch.lastKeyBefore()))
            changed.sealed.push_back(day);
        else if (seal)
            recordAltered(m_book, authority, day);
    }
    return changed;
}

void Import::noteWhatIsThere()
{
    for (const CodeGroup& group : listGroups(m_book)) {
        m_groups[group.number] = group.name;
        m_groupNamesBefore.insert(group.name.trimmed().toCaseFolded());
    }
    for (const MovementCode& code : listCodes(m_book, CodeSelection::All))
        m_codeNamesBefore.insert(code.description.trimmed().toCaseFolded());
}

/// If a file cannot be understood, the next ones are not read, since they refer to its rows.
void Import::readFile(const char* name, const std::vector<CsvColumn>& columns, TakeRow take)
{
    if (m_fileIsLost || !QFileInfo::exists(pathOf(name)))
        return;
    m_file = QString::fromLatin1(name);
    CsvTable table(pathOf(name));
    try {
        table.readTitles(columns);
        readRows(table, columns, take);
    } catch (const BadRow& bad) {
        noteBad(std::max<qint64>(table.line(), 1), QString::fromUtf8(bad.what()));
        m_fileIsLost = true;
    }
    m_bytesBefore += table.bytesRead();
}

void Import::readRows(CsvTable& table, const std::vector<CsvColumn>& columns, TakeRow take)
{
    for (qint64 row = 0; takeNext(table, columns, take); ++row) {
        if (row % rowsBetweenProgress == 0)
            tellProgress(m_bytesBefore + table.bytesRead());
    }
}

/// True for files that are not part of the digest, since importing them again changes nothing.
bool isBesides(const QString& file)
{
    return file == QLatin1String(import_files::counters) || file == QLatin1String(import_files::openingDifferences);
}

bool Import::takeNext(CsvTable& table, const std::vector<CsvColumn>& columns, TakeRow take)
{
    try {
        if (!table.next())
            return false;
        if (!isBesides(m_file))
            m_digest.add(m_file, table, columns);
        (this->*take)(table);
    } catch (const BadRow& bad) {
        if (bad.reach() == BadRow::Reach::File)
            throw;
        noteBad(table.line(), QString::fromUtf8(bad.what()));
    }
    return true;
}

void Import::noteBad(qint64 line, const QString& reason)
{
    ++m_outcome.badLineCount;
    if (m_outcome.badLines.size() < CsvImportOutcome::mostBadLines)
        m_outcome.badLines.push_back({m_file, line, reason});
}

void Import::tellProgress(qint64 done) const
{
    if (m_progress)
        m_progress(done, m_bytesInAll + m_bytesInAll / settlingShare);
}

void Import::takeGroup(const CsvTable& row)
{
    const CodeGroup group{row.number("aa"), row.text("perigrafh").value_or(QString()).trimmed()};
    if (group.number <= 0)
        throw import_reasons::groupNumberTooSmall();
    if (!isGroupName(group.name))
        throw import_reasons::groupNameMissing();
    const auto present = m_groups.find(group.number);
    if (present != m_groups.end() && present->second.trimmed() != group.name)
        throw import_reasons::groupNumberTaken(group.number, present->second);
    if (present != m_groups.end()) {
        ++m_outcome.groups.present;
        return;
    }
    if (m_groupNamesBefore.contains(group.name.toCaseFolded()))
        throw import_reasons::groupNameTaken(group.name);
    storeGroup(m_book, group, row.text("sxolia"));
    m_groups[group.number] = group.name;
    ++m_outcome.groups.added;
}

qint32 Import::groupNamed(const QString& name) const
{
    const auto isIt = [&name](const auto& group) { return group.second.trimmed() == name; };
    const auto found = std::find_if(m_groups.begin(), m_groups.end(), isIt);
    if (found == m_groups.end())
        throw import_reasons::groupUnknown(name);
    if (std::any_of(std::next(found), m_groups.end(), isIt))
        throw import_reasons::groupAmbiguous(name);
    return found->first;
}

/// The number is decisive if there is one. The name is the code's own copy and may differ from the group's.
void Import::giveGroup(MovementCode& code, const CsvTable& row) const
{
    const QString name = row.text("omada").value_or(QString());
    if (!row.has("aa_omadas")) {
        code.group = name.trimmed().isEmpty() ? 0 : groupNamed(name.trimmed());
        code.groupName = name;
        return;
    }
    code.group = row.number("aa_omadas", 0);
    const auto group = m_groups.find(code.group);
    if (code.group != 0 && group == m_groups.end())
        throw import_reasons::groupUnknown(code.group);
    if (row.has("omada"))
        code.groupName = name;
    else
        code.groupName = group == m_groups.end() ? QStringLiteral("") : group->second;
}

MovementCode Import::codeIn(const CsvTable& row)
{
    MovementCode code;
    code.code = row.number("kvdikos");
    m_badCodes.insert(code.code); // removed again when the row is accepted
    code.description = row.text("perigrafh").value_or(QString()).trimmed();
    if (code.description.isEmpty())
        throw import_reasons::codeDescriptionMissing();
    code.listLine = codeListLine(QString::number(code.code), code.description);
    giveGroup(code, row);
    code.income = row.flag("esodo", false);
    code.active = row.flag("energos", true);
    code.row = row.longNumber("aa", 0);
    return code;
}

bool isSame(const MovementCode& one, const MovementCode& other)
{
    return one.description.trimmed() == other.description && one.group == other.group && one.income == other.income
        && one.active == other.active && one.groupName.trimmed() == other.groupName.trimmed();
}

void Import::takeCode(const CsvTable& row)
{
    const MovementCode code = codeIn(row);
    const auto present = findCode(m_book, code.code, CodeSelection::All);
    if (present && !isSame(*present, code))
        throw import_reasons::codeTaken(code.code, present->description);
    if (!present && m_codeNamesBefore.contains(code.description.toCaseFolded()))
        throw import_reasons::codeDescriptionTaken(code.description);
    if (!present)
        storeCode(m_book, code);
    ++(present ? m_outcome.codes.present : m_outcome.codes.added);
    m_badCodes.erase(code.code);
}

/// After a bad line nothing will be stored, so the rest is only checked.
std::optional<MovementRefusal> Import::enter(const MovementDraft& draft)
{
    try {
        return isAllGood() ? m_batch.add(draft) : m_batch.refusalOf(draft);
    } catch (const CurrencyOverflow&) {
        throw import_reasons::amountsTooLarge(draft.day);
    }
}

void Import::takeMovement(const CsvTable& row)
{
    const MovementDraft draft = movementIn(row);
    const auto refusal = enter(draft);
    if (!refusal)
        ++m_outcome.movements;
    else if (*refusal != MovementRefusal::CodeHasChanged || !m_badCodes.contains(draft.code))
        throw import_reasons::movementRefused(*refusal, draft);
}

void Import::takeOpening(const CsvTable& row)
{
    const QDate day = row.date("day");
    const Currency amount = row.amount("amount");
    const auto present = openingDifferences(m_book);
    if (const auto found = present.find(storedDate(day)); found != present.end()) {
        if (found->second != amount)
            throw import_reasons::openingDifferenceTaken(day);
        ++m_outcome.openingDifferences.present;
        return;
    }
    if (m_closedDays == ClosedDays::Refuse && isClosed(m_book, day))
        throw import_reasons::dayIsClosed(day);
    if (isAllGood())
        enterOpening(day, amount);
    ++m_outcome.openingDifferences.added;
}

/// Runs before the days are settled, which adds the movements to the balances.
void Import::enterOpening(QDate day, Currency amount)
{
    try {
        addOpeningDifferences(m_book, {{storedDate(day), amount}});
        shiftLaterDays(m_book, day.addDays(-1), amount);
    } catch (const CurrencyOverflow&) {
        throw import_reasons::balancesTooLarge();
    }
}

/// Raises the counters, so that the number of a deleted row is not given to a new one.
void Import::takeCounter(const CsvTable& row)
{
    const QString table = row.text("name").value_or(QString());
    const qint64 last = row.longNumber("seq", 0);
    if (table != QLatin1String("omades") && table != QLatin1String("kvdikoi"))
        return;
    m_book
        .prepare("INSERT INTO sqlite_sequence (name, seq) SELECT ?1, 0"
                 " WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name=?1)")
        .bind(table)
        .run();
    m_book.prepare("UPDATE sqlite_sequence SET seq=?2 WHERE name=?1 AND seq<?2").bind(table, last).run();
}

void refuseWithoutFiles(const QString& folder)
{
    for (const char* const name : {import_files::groups, import_files::codes, import_files::movements}) {
        if (QFileInfo(folder + u'/' + QString::fromLatin1(name)).isFile())
            return;
    }
    throw Refused(QStringLiteral("Στον φάκελο %1 δεν υπάρχει κανένα από τα αρχεία omades.csv, kvdikoi.csv και"
                                 " kinhseis.csv.")
                      .arg(folder));
}

bool addsSomething(const CsvImportOutcome& outcome)
{
    return outcome.groups.added + outcome.codes.added + outcome.movements > 0;
}

} // namespace

CsvImportOutcome importCsv(Connection& book, const Authority& authority, const QString& folder, ImportChoices choices,
    const StepProgress& progress)
{
    refuseWithoutFiles(folder);
    Transaction writing(book, authority);
    completeJournal(book, book);
    Import import(book, authority, folder, choices.closedDays, progress);
    CsvImportOutcome outcome = import.run();
    if (outcome.badLineCount != 0)
        return outcome;
    if (addsSomething(outcome)) {
        if (choices.takenBefore == TakenBefore::Refuse)
            refuseTaken(book, import.digest());
        rememberImport(book, import.digest(), outcome, authority);
    }
    const ImportedDays days = import.days(authority);
    const QString journal = recordImport(book, import.digest(), outcome, days, authority);
    for (const QDate day : days.sealed)
        sealDay(book, authority, day, journal);
    decideOrGiveUp();
    writing.commit();
    return outcome;
}

} // namespace lorvan
