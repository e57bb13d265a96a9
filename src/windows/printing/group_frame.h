#pragma once

#include <QGroupBox>

namespace lorvan {

/// A frame whose title the user may change: any characters, with an ellipsis if they do not fit.
class GroupFrame : public QGroupBox {
    Q_OBJECT

public:
    explicit GroupFrame(QWidget* parent = nullptr)
        : QGroupBox(parent)
    {
    }

    void setGroupTitle(const QString& title);
    [[nodiscard]] const QString& groupTitle() const { return m_title; }

    /// The strip along the upper edge that contains the title, high enough to type in; it may extend beyond the edge.
    [[nodiscard]] QRect titleStrip() const;

    [[nodiscard]] QSize minimumSizeHint() const override; ///< The title does not widen it.

Q_SIGNALS:
    void renameAsked(); ///< By a double click.

protected:
    void initStyleOption(QStyleOptionGroupBox* option) const override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QFont titleFont() const;

    QString m_title;
};

} // namespace lorvan
