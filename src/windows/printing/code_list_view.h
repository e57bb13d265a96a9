#pragma once

#include <QElapsedTimer>
#include <QListView>

namespace lorvan {

/// The open list of codes, each line a code, a blank and its description. Typing goes to the first line from the
/// current one on whose code or description begins with what was typed, without regard to letter case and accents.
class CodeListView : public QListView {
    Q_OBJECT

public:
    explicit CodeListView(QWidget* parent = nullptr);

    void keyboardSearch(const QString& typed) override;

protected:
    void showEvent(QShowEvent* event) override; ///< Begins a new search.

private:
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};

} // namespace lorvan
