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

int asCount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
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
    wait(loop, parent, texts);
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

void BackgroundRun::show(ProgressWindow& window)
{
    window.setProgress(m_done, m_all);
    if (m_fate == Fate::Decided)
        return window.setDecided();
    const QMutexLocker locker(&m_guard);
    window.setActivity(m_activity);
}

void BackgroundRun::wait(QEventLoop& loop, QWidget* parent, const ProgressTexts& texts)
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
    ProgressWindow window(texts, parent);
    QTimer update;
    QObject::connect(&window, &ProgressWindow::cancelled, &loop, [this] { cancel(); });
    QObject::connect(&update, &QTimer::timeout, &window, [this, &window] { show(window); });
    update.start(50ms);
    show(window);
    window.show();
    loop.exec();
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
