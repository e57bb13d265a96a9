#pragma once

#include <QMessageBox>
#include <QObject>

#include <deque>
#include <functional>

namespace lorvan::test {

/// A message box that a test waits for, with the answer that it gives.
struct ExpectedBox {
    QMessageBox::Icon icon;
    QString title;
    QString text; ///< The whole text; of a box made by partly(), a part of it.
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    bool partOfText = false;
    QString details = {}; ///< A part of the small print, where it matters.
    Qt::Key key = Qt::Key_unknown; ///< Pressed instead of a click on the answer.
};

[[nodiscard]] ExpectedBox information(const QString& title, const QString& text);
[[nodiscard]] ExpectedBox warning(const QString& title, const QString& text);
[[nodiscard]] ExpectedBox stop(const QString& title, const QString& text);
[[nodiscard]] ExpectedBox okCancel(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer);
[[nodiscard]] ExpectedBox yesNo(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer);
[[nodiscard]] ExpectedBox byKey(ExpectedBox box, Qt::Key key);
[[nodiscard]] ExpectedBox partly(ExpectedBox box);
[[nodiscard]] ExpectedBox withDetails(ExpectedBox box, const QString& details);

/// Answers modal boxes as they come, in the order expected. A box that is not expected, or differs from what is, fails
/// the test and gets its escape button; so does a box whose buttons are not Greek.
class BoxScript : public QObject {
    Q_OBJECT

public:
    BoxScript();
    ~BoxScript() override; ///< Fails the test when an expected box has not come.

    void expect(const ExpectedBox& box) { m_expected.push_back(box); }

    /// Runs once when a dialog of this object name is shown.
    void whenShown(const QString& objectName, std::function<void(QWidget&)> action);

    /// True when every expected box has come and been answered.
    [[nodiscard]] bool allSeen() const { return m_expected.empty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QMessageBox& box);

    std::deque<ExpectedBox> m_expected;
    std::map<QString, std::function<void(QWidget&)>> m_actions;
};

} // namespace lorvan::test
