#include "audit/record_audit.h"

#include "platform/engine/connection.h"

namespace lorvan {
namespace {

/// Adds a finding for each row: its key, a count and a text.
void addRows(BookFindings& findings, Connection& book, FindingKind kind, std::string_view sql)
{
    auto rows = book.prepare(sql);
    while (rows.step()) {
        Finding finding{kind};
        finding.key = rows.integer(0);
        finding.rows = rows.integer(1);
        finding.text = rows.text(2);
        findings.add(std::move(finding));
    }
}

void auditCodes(BookFindings& findings, Connection& book)
{
    addRows(findings, book, FindingKind::CodeWithoutNumber,
        "SELECT aa, 1, perigrafh FROM kvdikoi WHERE typeof(kvdikos)<>'integer' ORDER BY aa");
    addRows(findings, book, FindingKind::RepeatedCode,
        "SELECT kvdikos, count(*), '' FROM kvdikoi WHERE typeof(kvdikos)='integer'"
        " GROUP BY kvdikos HAVING count(*)>1 ORDER BY kvdikos");
    addRows(findings, book, FindingKind::CodeUnknownGroup,
        "SELECT kvdikos, aa_omadas, omada FROM kvdikoi WHERE coalesce(aa_omadas,0)<>0"
        " AND NOT EXISTS (SELECT 1 FROM omades WHERE aa=aa_omadas) ORDER BY kvdikos");
    addRows(findings, book, FindingKind::CodeGroupName,
        "SELECT k.kvdikos, k.aa_omadas, k.omada FROM kvdikoi k LEFT JOIN omades o ON o.aa=k.aa_omadas"
        " WHERE (o.aa IS NOT NULL OR coalesce(k.aa_omadas,0)=0)"
        " AND trim(coalesce(k.omada,''))<>trim(coalesce(o.perigrafh,'')) ORDER BY k.kvdikos");
}

void auditClosedDays(BookFindings& findings, Connection& book)
{
    auto rows = book.prepare("SELECT hmeraklhsimatos, count(*), typeof(hmeraklhsimatos)='integer'"
                             " FROM klhsimotameioy GROUP BY hmeraklhsimatos ORDER BY hmeraklhsimatos");
    while (rows.step()) {
        const bool isDate = rows.boolean(2) && rows.date(0).isValid();
        if (isDate && rows.integer(1) == 1)
            continue;
        Finding finding{isDate ? FindingKind::RepeatedClosedDay : FindingKind::ClosedDayWithoutDate};
        finding.day = rows.integer(0);
        finding.rows = rows.integer(1);
        finding.text = rows.text(0);
        findings.add(std::move(finding));
    }
}

void auditUsers(BookFindings& findings, Connection& book)
{
    addRows(findings, book, FindingKind::UserWithoutName,
        "SELECT rowid, 1, '' FROM codes WHERE trim(coalesce(uname,''))='' ORDER BY rowid");
    addRows(findings, book, FindingKind::RepeatedUser,
        "SELECT min(rowid), count(*), uname FROM codes WHERE trim(coalesce(uname,''))<>''"
        " GROUP BY uname COLLATE greek HAVING count(*)>1 ORDER BY 1");
}

void auditVersion(BookFindings& findings, Connection& book)
{
    addRows(findings, book, FindingKind::VersionRows,
        "SELECT 0, count(*), group_concat(ariumos, ', ') FROM taytothta GROUP BY 1=1 HAVING count(*)>1");
}

} // namespace

BookFindings auditRecords(Connection& book)
{
    BookFindings findings;
    auditVersion(findings, book);
    auditCodes(findings, book);
    auditClosedDays(findings, book);
    auditUsers(findings, book);
    return findings;
}

} // namespace lorvan
