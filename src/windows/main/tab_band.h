#pragma once

#include <QFrame>
#include <QTabBar>

namespace lorvan {

class Label3D;

/// The band at the top of the main window: on the left the tabs `Tab1`; on the right the heading `Label3D1(1)` above
/// the version `Label3D1(0)`, with an ellipsis and a tooltip if they are too long.
class TabBand : public QFrame {
    Q_OBJECT

public:
    explicit TabBand(QWidget* parent = nullptr);

    /// The caption is stored as given and shown without ampersands and outer blanks. Returns the tab's index.
    int addTab(const QString& iconName, const QString& caption, const QString& toolTip);

    [[nodiscard]] QTabBar* tabs() const { return m_tabs; }

    void setHeading(const QString& text);
    void setVersion(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void dress();
    void layOut();
    void placeLabel(Label3D& label, int top);

    QTabBar* m_tabs;
    Label3D* m_heading;
    Label3D* m_version;
};

} // namespace lorvan
