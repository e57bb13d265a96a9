#include "preview/background_run.h"

#include "look/busy_pointer.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <exception>
#include <limits>
#include <thread>

namespace lorvan {
namespace {

constexpr int aboveFoot = 64;

int asCount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

/// So that what stands above it can be read.
QPoint atFootOf(const QRect& front, QSize window)
{
    return {front.center().x() - window.width() / 2, front.bottom() - window.height() - aboveFoot};
}

} // namespace

using namespace std::chrono_literals;

bool BackgroundRun::run(QWidget* parent, const ProgressTexts& texts, const Work& work)
{
    m_fate = Fate::Open;
    m_ended = false;
    m_done = 0;
    m_all = 0;
    m_activity = texts.activity;
    bool isWhole = false;
    std::exception_ptr failure;
    QEventLoop loop;
    m_loop = &loop;
    m_texts = texts;
    m_front = parent;
    m_standsAtFoot = false;
    std::thread worker([&] {
        const auto begun = [this](const QString& activity) {
            const QMutexLocker locker(&m_guard);
            m_activity = activity;
        };
        const WorkWatch watch(begun, [this] { return decide(); });
        try {
            isWhole = work([this](int done, int all) {
                m_done = done;
                m_all = all;
                return !isCancelled();
            });
        } catch (...) {
            failure = std::current_exception();
        }
        m_ended = true;
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    wait(loop);
    m_window.reset();
    if (!m_ended)
        cancel(); // the program is ending, which ends every loop
    worker.join();
    if (failure && !isCancelled())
        std::rethrow_exception(failure);
    return isWhole && !isCancelled();
}

void BackgroundRun::cancel()
{
    Fate open = Fate::Open;
    m_fate.compare_exchange_strong(open, Fate::Cancelled);
}

bool BackgroundRun::decide()
{
    Fate fate = Fate::Open;
    return m_fate.compare_exchange_strong(fate, Fate::Decided) || fate == Fate::Decided;
}

void BackgroundRun::updateProgress()
{
    m_window->setProgress(m_done, m_all);
    if (m_fate == Fate::Decided)
        return m_window->setDecided();
    const QMutexLocker locker(&m_guard);
    m_window->setActivity(m_activity);
}

void BackgroundRun::wait(QEventLoop& loop)
{
    QTimer::singleShot(500ms, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (m_ended)
        return;
    if (isCancelled()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        return;
    }
    const OrdinaryPointer pointer;
    QTimer update;
    QObject::connect(&update, &QTimer::timeout, &loop, [this] { updateProgress(); });
    update.start(50ms);
    showProgress();
    loop.exec();
}

void BackgroundRun::showProgress()
{
    m_window = std::make_unique<ProgressWindow>(m_texts, m_front);
    QObject::connect(m_window.get(), &ProgressWindow::cancelled, m_loop, [this] { cancel(); });
    if (m_standsAtFoot)
        m_window->move(atFootOf(m_front->frameGeometry(), m_window->size()));
    updateProgress();
    m_window->show();
}

void BackgroundRun::showMeanwhile(const std::function<QWidget*()>& show)
{
    const auto showNow = [this, show] {
        if (isCancelled() || m_ended)
            return;
        m_front = show();
        m_standsAtFoot = true;
        if (m_window)
            showProgress();
    };
    QMetaObject::invokeMethod(m_loop, showNow, Qt::QueuedConnection);
}

BackgroundRun::Work stoppable(const std::function<void(const StepProgress& progress)>& work)
{
    return [work](const BackgroundRun::Progress& progress) {
        int shown = 0;
        int all = 0;
        const StopCheck stop([&] { return progress(shown, all); });
        work([&](qint64 done, qint64 whole) {
            shown = asCount(done);
            all = asCount(std::max(done, whole));
            (void)progress(shown, all);
        });
        return true;
    };
}

bool runStoppable(BackgroundRun& run, QWidget* parent, const ProgressTexts& texts,
    const std::function<void(const StepProgress& progress)>& work)
{
    bool isDone = false;
    (void)run.run(parent, texts, stoppable([&](const StepProgress& progress) {
        work(progress);
        isDone = true;
    }));
    return isDone;
}

} // namespace lorvan
