#pragma once

#include "platform/work_pace.h"

#include <QDialog>
#include <QProgressBar>

class QLabel;

namespace lorvan {

class CommandButton;
class ProgressLine;

/// The texts of a progress window. The word for what is counted comes before the number: "Γραμμές", "Σελίδες". Without
/// one, as for work whose steps count different things, the window shows a percentage.
struct ProgressTexts {
    QString title;
    QString activity;
    QString counted;
};

/// Shows what a long job does, how far it is and, after a few seconds, how long it still takes, with a button to
/// cancel. Escape and closing the window cancel too; it stays until the code that runs the work removes it. Modal.
class ProgressWindow : public QDialog {
    Q_OBJECT

public:
    ProgressWindow(const ProgressTexts& texts, QWidget* parent);

    /// `all` is 0 if it is unknown.
    void setProgress(int done, int all);
    /// What is being done now.
    void setActivity(const QString& activity);
    /// The work can no longer be cancelled: the button goes, and the first line says so.
    void setDecided();

    void reject() override;

Q_SIGNALS:
    void cancelled();

private:
    [[nodiscard]] QString countText(int done, int all) const;

    const QString m_counted;
    QLabel* m_activity;
    QLabel* m_count;
    QLabel* m_left;
    ProgressLine* m_bar;
    CommandButton* m_cancel;
    WorkPace m_pace;
    bool m_isCancelled = false;
    bool m_isDecided = false;
};

/// A flat progress bar. If the end is unknown, a section of it advances with each step.
class ProgressLine : public QProgressBar {
    Q_OBJECT

public:
    explicit ProgressLine(QWidget* parent = nullptr);

    void step(); ///< A sign of life when the end is unknown.

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF filled() const;

    int m_steps = 0;
};

} // namespace lorvan
