#include "journal/journal_lines.h"

#include "journal/journal_columns.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace lorvan {
namespace {

struct States {
    QJsonObject before;
    QJsonObject after;

    [[nodiscard]] bool areBoth() const { return !before.isEmpty() && !after.isEmpty(); }
    [[nodiscard]] QStringList names() const
    {
        QStringList names = before.keys();
        for (const QString& name : after.keys()) {
            if (!before.contains(name))
                names += name;
        }
        return names;
    }
};

/// False if the text is there and no state.
bool read(const std::optional<QString>& json, QJsonObject& state)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.value_or(QString()).toUtf8());
    state = document.object();
    return !json || document.isObject();
}

JournalLine lineOf(const QString& name, const JournalColumn& column, const States& states)
{
    const QJsonValue before = states.before[name];
    const QJsonValue after = states.after[name];
    JournalLine line{column.label, journalValueText(before, column.form), journalValueText(after, column.form)};
    line.isOfChange = column.isOfChange;
    line.differs = states.areBoth() && before != after && !column.isOfChange;
    if (column.told == JournalColumn::Told::Alone)
        line.weight = JournalLine::Weight::Clear;
    if (column.told == JournalColumn::Told::Never
        || (!line.differs && saysNothing(after.isUndefined() ? before : after, column.form)))
        line.weight = JournalLine::Weight::Slight;
    return line;
}

JournalLine wholeText(const JournalRow& row)
{
    return {QStringLiteral("Όπως είναι γραμμένο"), row.before.value_or(QString()), row.after.value_or(QString()),
        row.before && row.after && row.before != row.after};
}

} // namespace

std::vector<JournalLine> journalLines(const JournalRow& row)
{
    States states;
    if (!read(row.before, states.before) || !read(row.after, states.after))
        return {wholeText(row)};
    std::vector<JournalLine> lines;
    QStringList names = states.names();
    for (const JournalColumn& column : journalColumnsOf(row)) {
        if (names.removeAll(column.name) > 0)
            lines.push_back(lineOf(column.name, column, states));
    }
    for (const QString& name : names)
        lines.push_back(lineOf(name, otherJournalColumn(row, name), states));
    return lines;
}

} // namespace lorvan
