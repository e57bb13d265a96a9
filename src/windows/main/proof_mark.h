#pragma once

#include "platform/work_pace.h"
#include "proof/last_proof.h"

#include <QWidget>

class QLabel;

namespace lorvan {

class IconView;

/// The small tick below the menu button `tools` that says when the balances were proved; a warning sign where that
/// could not be done. The tooltip has the details.
class ProofMark : public QWidget {
    Q_OBJECT

public:
    explicit ProofMark(QWidget* parent);

    /// How far the proof is that is under way, of a whole greater than 0.
    void showProving(qint64 done, qint64 whole);
    /// The time of day, or the day if that is not today.
    void showProved(const LastProof& proof, QDate today);
    void showFailed(const QString& reason);
    void showNothing();

    /// Where there is no room for it, the time stands in the tooltip alone.
    void setTimeShown(bool isShown);

private:
    void tell(const QString& text);

    IconView* m_tick;
    IconView* m_warning;
    QLabel* m_time;
    WorkPace m_pace; ///< Of the proof that is under way.
};

} // namespace lorvan
