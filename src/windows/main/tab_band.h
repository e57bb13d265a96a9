#pragma once

#include <QFrame>
#include <QTabBar>

namespace lorvan {

class Label3D;
class ProofMark;
class ToolsButton;

/// The band at the top of the main window: on the left the tabs `Tab1`; on the right the heading `Label3D1(1)` above
/// the version `Label3D1(0)`, with an ellipsis and a tooltip if they are too long. Before these the menu button `tools`
/// above the mark of the last proof; where they would cut the heading they shrink to icons.
class TabBand : public QFrame {
    Q_OBJECT

public:
    explicit TabBand(QWidget* parent = nullptr);

    /// The caption is stored as given and shown without ampersands and outer blanks. Returns the tab's index.
    int addTab(const QString& iconName, const QString& caption, const QString& toolTip);

    [[nodiscard]] QTabBar* tabs() const { return m_tabs; }
    [[nodiscard]] ToolsButton* tools() const { return m_tools; }
    [[nodiscard]] ProofMark* proof() const { return m_proof; }

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
    void placeTools(const QRect& place, bool isWide);
    void placeLabel(Label3D& label, int top, int available);

    QTabBar* m_tabs;
    ToolsButton* m_tools;
    ProofMark* m_proof;
    Label3D* m_heading;
    Label3D* m_version;
};

} // namespace lorvan
