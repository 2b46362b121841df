// SPDX-License-Identifier: MIT
// What a user does with a million lines of output, one after another in one dialog, and how long
// the window stands still for it.
#include "DialogFlood.h"

#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace {

constexpr int lineCount = 1000000;

QString needle()
{
    return QStringLiteral("the last line");
}

/// The dialog that all of this is done to.
class Desk
{
public:
    static Desk& instance()
    {
        static Desk desk;
        return desk;
    }

    void begin(Details details)
    {
        m_stage.reset();
        m_stage = std::make_unique<DialogStage>();
        choose(*m_stage, details);
    }
    void end() { m_stage.reset(); }

    const DialogStage& stage() const { return *m_stage; }

private:
    std::unique_ptr<DialogStage> m_stage;
};

const DialogStage& stage()
{
    return Desk::instance().stage();
}

// The deed, done by the event loop, and what follows from it in the second after it.
template <typename Deed>
void measure(benchmark::State& state, Deed deed)
{
    for ([[maybe_unused]] auto _ : state) {
        GapReader gaps;
        QElapsedTimer clock;
        QTimer::singleShot(100, [&] {
            deed();
            clock.start();
        });
        processEventsUntil([&clock] { return clock.isValid() && clock.elapsed() > 1000; });
        gaps.report(state);
    }
}

void flood(benchmark::State& state, Details details)
{
    for ([[maybe_unused]] auto _ : state) {
        Desk::instance().begin(details);
        const double before = residentBytes();
        GapReader gaps;
        stage().run({QStringLiteral("out"), needle() + QStringLiteral("\\n"),
                     QStringLiteral("flood"), QString::number(lineCount), QStringLiteral("55"),
                     QStringLiteral("warnings"), QStringLiteral("500"), QStringLiteral("500"),
                     QStringLiteral("out"), needle() + QStringLiteral("\\n")});
        processEventsUntil([] { return stage().ok()->isEnabled(); });
        gaps.report(state);
        state.counters["bytes_a_line"] = (residentBytes() - before) / lineCount;
        if (stage().output()->document()->blockCount() != lineCount + 502) {
            state.SkipWithError("lines were lost");
        }
    }
}

void floodFolded(benchmark::State& state)
{
    flood(state, Details::Folded);
}

void unfold(benchmark::State& state)
{
    measure(state, [] { stage().openDetails(); });
}

void makeWider(benchmark::State& state)
{
    measure(state, [] { stage().dialog->resize(stage().dialog->size() + QSize(150, 0)); });
}

void scrollToTheMiddle(benchmark::State& state)
{
    measure(state, [] {
        QScrollBar* const bar = stage().output()->verticalScrollBar();
        bar->setValue(bar->maximum() / 2);
    });
}

void scrollThroughPages(benchmark::State& state)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [] {
        stage().output()->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
    });
    timer.start(0);
    measure(state, [] {});
}

// QTextDocument's own search is most of it.
void findAtTheEnd(benchmark::State& state)
{
    measure(state, [] {
        QTextCursor cursor = stage().output()->textCursor();
        cursor.setPosition(0);
        cursor.setPosition(needle().size(), QTextCursor::KeepAnchor);
        stage().output()->setTextCursor(cursor);
        QMetaObject::invokeMethod(stage().tabs(), "findNext");
    });
    if (stage().output()->textCursor().blockNumber() < lineCount) {
        state.SkipWithError("not found");
    }
}

void findInTheDocumentAlone(benchmark::State& state)
{
    measure(state, [] {
        benchmark::DoNotOptimize(
            stage().output()->document()->find(needle(), needle().size()).position());
    });
}

void jumpFromTheTable(benchmark::State& state)
{
    measure(state, [] { Q_EMIT stage().warnings()->cellDoubleClicked(200, 2); });
    if (!stage().output()->textCursor().hasSelection()) {
        state.SkipWithError("not found");
    }
}

void selectAndCopyAll(benchmark::State& state)
{
    measure(state, [] {
        stage().output()->selectAll();
        stage().output()->copy();
    });
}

void fold(benchmark::State& state)
{
    measure(state, [] { stage().details()->setChecked(false); });
}

void floodOpen(benchmark::State& state)
{
    flood(state, Details::Open);
}

void documentAlone(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        QTextDocument document;
        document.setUndoRedoEnabled(false);
        const double before = residentBytes();
        QTextCursor writer(&document);
        writer.beginEditBlock();
        const QString line(54, QLatin1Char('x'));
        for (int number = 0; number < lineCount; ++number) {
            writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
            writer.insertText(line, QTextCharFormat());
        }
        state.counters["bytes_a_line"] = (residentBytes() - before) / lineCount;
        writer.endEditBlock();
    }
}

} // namespace

BENCHMARK(floodFolded)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(unfold)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(makeWider)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollToTheMiddle)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollThroughPages)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(jumpFromTheTable)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(findAtTheEnd)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(findInTheDocumentAlone)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(selectAndCopyAll)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(fold)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(floodOpen)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(documentAlone)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    Desk::instance().end();
    return 0;
}
