#pragma once

#include <QDialog>
#include <QProgressBar>

class QLabel;

namespace lorvan {

class CommandButton;
class ProgressLine;

/// What a window of progress says. What is counted stands before its number: "Γραμμές", "Σελίδες".
struct ProgressTexts {
    QString title;
    QString activity;
    QString counted;
};

/// How far a long work is, with a button to cancel. Escape and closing it cancel too; it stays until whoever runs the
/// work takes it away. Modal.
class ProgressWindow : public QDialog {
    Q_OBJECT

public:
    ProgressWindow(const ProgressTexts& texts, QWidget* parent);

    /// `all` is 0 where it is not known.
    void setProgress(int done, int all);

    void reject() override;

Q_SIGNALS:
    void cancelled();

private:
    const QString m_counted;
    QLabel* m_activity;
    QLabel* m_count;
    ProgressLine* m_bar;
    CommandButton* m_cancel;
};

/// A flat bar of progress. Where the end is not known, a part of it goes on with each step.
class ProgressLine : public QProgressBar {
    Q_OBJECT

public:
    explicit ProgressLine(QWidget* parent = nullptr);

    void step(); ///< A sign of life where the end is not known.

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF filled() const;

    int m_steps = 0;
};

} // namespace lorvan
