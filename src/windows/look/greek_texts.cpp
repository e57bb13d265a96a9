#include "look/greek_texts.h"

#include "look/greek_texts_table.h"

#include <QHash>

namespace lorvan {
namespace {

constexpr QByteArrayView envelope = "Envelope "; // forty sizes of paper begin with it

const QHash<QByteArrayView, QString>& greekBySource()
{
    static const QHash<QByteArrayView, QString> texts = [] {
        QHash<QByteArrayView, QString> filled;
        for (const GreekText& text : greekTexts())
            filled.insert(text.source, QString::fromUtf8(text.greek));
        return filled;
    }();
    return texts;
}

} // namespace

QString GreekTexts::translate(const char*, const char* sourceText, const char*, int) const
{
    const QByteArrayView source(sourceText);
    if (source.startsWith(envelope))
        return QStringLiteral("Φάκελος ") + QString::fromUtf8(source.sliced(envelope.size()));
    return greekBySource().value(source);
}

} // namespace lorvan
