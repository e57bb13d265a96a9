#include "look/greek_texts.h"

#include "look/greek_texts_table.h"

#include <QHash>

namespace lorvan {
namespace {

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
    return greekBySource().value(sourceText);
}

} // namespace lorvan
