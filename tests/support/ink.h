#pragma once

#include <QImage>

namespace lorvan::test {

/// The smallest rectangle with all that is no lighter than that, from 0 for black to 255 for white, in an area of the
/// image or in all of it.
[[nodiscard]] inline QRect inkIn(const QImage& image, QRect area = {}, int lightest = 200)
{
    if (area.isNull())
        area = image.rect();
    QRect ink;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(image.pixel(x, y)) <= lightest)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace lorvan::test
