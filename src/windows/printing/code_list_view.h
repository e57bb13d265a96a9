#pragma once

#include <QElapsedTimer>
#include <QListView>

namespace lorvan {

/// The open list of codes; each line is a code, a blank and its description. Typing moves to the first line, beginning
/// with the current one, whose code or description starts with the typed text, without regard to letter case and
/// accents.
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
