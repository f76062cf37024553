// Measures the project translation dialog with 5,000, 20,000 and 80,000 lines against as many
// terms: a click on a filter, a change of the target language and a sort, each against refilling or
// sorting a QStandardItemModel under a QTreeView with the same rows in this run. What follows from
// the events is processed and counted on both sides. Times of the processor, medians of five. The
// exit status is 1 when a bound is missed.
#include <QApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/ProcessorTime.h"
#include "host/Host.h"
#include "platform/window/qt/WindowHandle.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

constexpr int kSizes[] = {5000, 20000, 80000};
constexpr int kRuns = 5, kManyClicks = 60;
constexpr int kColumns = 3, kSorted = 1;

struct Times {
    double filter = 0, target = 0, sort = 0;
};

struct Line {
    std::u16string original, translation;
};

// Words like those of a drawing, 4 to 36 letters with blanks between them, no two alike.
std::vector<Line> MakeLines(int count) {
    std::mt19937 random(1);
    const auto words = [&random](int line) {
        std::u16string text = QString::number(line, 36).toStdU16String();
        const int length = 4 + int(random() % 33);
        for (int i = 0; i < length; ++i)
            text += i % 7 == 6 ? u' ' : char16_t((i % 7 ? u'a' : u'A') + random() % 26);
        std::swap(text.front(), text.back());
        return text;
    };
    std::vector<Line> lines;
    for (int line = 0; line < count; ++line) lines.push_back({words(line), words(line)});
    return lines;
}

void Check(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

double Time(const std::function<void()>& work) {
    return ProcessorTimeOf([&work] {
        work();
        QApplication::processEvents();
    });
}

double MedianTime(
    const std::function<void()>& work, const std::function<void()>& before = [] {}) {
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        before();
        times.push_back(Time(work));
    }
    return MedianOf(times);
}

// --- the dialog -------------------------------------------------------------------------------

// Three languages; every line has a term with a text in both targets.
void Fill(ITradutorProj& dialog, const std::vector<Line>& lines) {
    const char16_t* names[] = {u"Português", u"English", u"Deutsch"};
    dialog.traducoes = std::make_unique<traducaoTQ::IBDIdiomas::structTraducoes>();
    for (int i = 0; i < 3; ++i) {
        ITradutorProj::structIdioma language;
        language.key = TQString(i + 1, 0);
        language.descr = names[i];
        language.use = u"1";
        dialog.idiomas.push_back(language);
        dialog.traducoes->languages.push_back(names[i]);
    }
    dialog.idiomaProjeto = u"1";
    dialog.projetoLido = true;
    dialog.expressoes = std::make_unique<traducaoTQ::ITabelaExpressoes::ListaExpressoes>();
    for (const Line& line : lines) {
        dialog.expressoes->push_back(std::make_unique<traducaoTQ::structExpressao>());
        dialog.expressoes->back()->original = line.original;
        traducaoTQ::IBDIdiomas::structTermo term;
        term.translations = {line.original, line.translation, line.translation};
        dialog.traducoes->terms.push_back(term);
    }
    std::shuffle(dialog.traducoes->terms.begin(), dialog.traducoes->terms.end(), std::mt19937(2));
}

// What a user does to a dialog that is shown.
class Hands {
  public:
    explicit Hands(CDialog& dialog)
        : dialog(dialog), list(dynamic_cast<CListCtrl&>(*dialog.GetDlgItem(kListaExpressoes))) {}

    void ClickFilter() {  // of a state that no line has
        QTest::mouseClick(WidgetOf(dialog.GetDlgItem(kFiltroManual)), Qt::LeftButton, {},
                          QPoint(8, 8));
    }
    void ChangeTarget() {
        up = !up;
        QTest::keyClick(WidgetOf(dialog.GetDlgItem(kListaDestino)),
                        up ? Qt::Key_Home : Qt::Key_End);
    }
    void Sort() {
        auto* header = WidgetOf(&list)->findChild<QHeaderView*>();
        CRect title;
        list.GetHeaderCtrl()->GetItemRect(kSorted, title);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(title.left + 20, title.top + 5));
    }
    void CheckRows(const std::vector<Line>& lines) const {
        const int last = int(lines.size()) - 1;
        Check(list.GetItemCount() == last + 1, "the list lacks rows");
        Check(list.GetItemText(last, kSorted) == lines[last].original.c_str() &&
                  list.GetItemText(last, 2) == lines[last].translation.c_str(),
              "the last row is not that of the last line");
    }
    void CheckSorted() const {
        for (int row = 1; row < list.GetItemCount(); ++row) {
            const CString before = list.GetItemText(row - 1, kSorted);
            Check(before.CompareNoCase(list.GetItemText(row, kSorted)) <= 0, "not sorted");
        }
    }

  private:
    CDialog& dialog;
    CListCtrl& list;
    bool up = false;
};

// Runs the dialog and the work while it is shown; what the work throws comes out.
void WhileShown(ITradutorProj& dialog, const std::function<void(Hands&)>& work) {
    std::exception_ptr failure;
    QTimer::singleShot(0, qApp, [&] {
        Hands hands(dialog);
        QApplication::processEvents();
        try {
            work(hands);
        } catch (...) {
            failure = std::current_exception();
        }
        dialog.EndDialog(ITradutorProj::Fechado);
    });
    dialog.DoModal();
    if (failure) std::rethrow_exception(failure);
}

Times RunDialog(const std::vector<Line>& lines) {
    ITradutorProj dialog(nullptr);
    Fill(dialog, lines);
    Times times;
    WhileShown(dialog, [&](Hands& hands) {
        hands.ChangeTarget();
        times.filter = MedianTime([&] { hands.ClickFilter(); });
        hands.CheckRows(lines);
        times.target = MedianTime([&] { hands.ChangeTarget(); });
        hands.CheckRows(lines);
        // In the order of the lines each time; the last of an odd number of sorts ascends.
        times.sort = MedianTime([&] { hands.Sort(); }, [&] { hands.ClickFilter(); });
        hands.CheckSorted();
        hands.Sort();  // the direction is that of the process: back to where it began
    });
    return times;
}

// Each click adds a column to those that the list has ever had.
double LateOverEarlyClicks(const std::vector<Line>& lines) {
    ITradutorProj dialog(nullptr);
    Fill(dialog, lines);
    double early = 0, late = 0;
    WhileShown(dialog, [&](Hands& hands) {
        hands.ChangeTarget();
        early = MedianTime([&] { hands.ClickFilter(); });
        for (int click = 0; click < kManyClicks; ++click) hands.ClickFilter();
        late = MedianTime([&] { hands.ClickFilter(); });
    });
    return late / early;
}

// --- the toolkit's own model ------------------------------------------------------------------

void Refill(QStandardItemModel& model, const std::vector<Line>& lines) {
    model.setRowCount(0);
    for (const Line& line : lines) {
        QList<QStandardItem*> items;
        for (const std::u16string& text :
             {std::u16string(u"Automatic"), line.original, line.translation})
            items.append(new QStandardItem(QString::fromStdU16String(text)));
        model.appendRow(items);
    }
}

Times RunQt(const std::vector<Line>& lines) {
    QTreeView view;
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);  // the fast way
    view.resize(700, 300);
    view.show();
    QStandardItemModel filled(0, kColumns);
    view.setModel(&filled);
    QApplication::processEvents();
    Times times;
    times.filter = times.target = MedianTime([&] { Refill(filled, lines); });
    const auto sort = [&] { view.sortByColumn(kSorted, Qt::AscendingOrder); };
    times.sort = MedianTime(sort, [&] {
        // Never destroyed: each item of a sorted model searches its own place first, which takes
        // minutes.
        auto* unsorted = new QStandardItemModel(0, kColumns);
        Refill(*unsorted, lines);
        view.header()->setSortIndicator(-1, Qt::AscendingOrder);
        view.setModel(unsorted);
        QApplication::processEvents();
    });
    return times;
}

// --- the figures ------------------------------------------------------------------------------

bool Print(const std::string& what, double measured, double asked) {
    const bool met = measured <= asked;
    std::printf("%-62s %8.2f  <= %6.2f  %s\n", what.c_str(), measured, asked,
                met ? "ok" : "MISSED");
    return met;
}

constexpr struct {
    const char* name;
    double Times::*time;
    bool logarithm;  // grows by n log n
} kParts[] = {{"a click on a filter", &Times::filter, false},
              {"a change of the target", &Times::target, false},
              {"a sort", &Times::sort, true}};

bool PrintGrowth(const std::vector<Times>& times) {
    // What does not stay in the processor's caches costs more: linear growth would be 16 and the
    // growth of a search through all lines 256.
    constexpr double kCaches = 3;
    const double more = double(std::end(kSizes)[-1]) / kSizes[0];
    const double logarithms = std::log(std::end(kSizes)[-1]) / std::log(kSizes[0]);
    bool met = true;
    for (const auto& part : kParts) {
        const double linear = part.logarithm ? more * logarithms : more;
        met &= Print("dialog, " + std::string(part.name) + ": 80,000 lines over 5,000",
                     times.back().*part.time / (times.front().*part.time), kCaches * linear);
    }
    return met;
}

bool Measure() {
    bool met = true;
    std::vector<Times> dialogs;
    for (const int size : kSizes) {
        const auto lines = MakeLines(size);
        const Times ours = RunDialog(lines), theirs = RunQt(lines);
        dialogs.push_back(ours);
        std::printf(
            "%d lines, dialog: filter %.1f ms, target %.1f ms, sort %.1f ms; Qt: refill "
            "%.1f ms, sort %.1f ms\n",
            size, ours.filter, ours.target, ours.sort, theirs.filter, theirs.sort);
        for (const auto& part : kParts)
            met &= Print("dialog, " + std::string(part.name) + " over Qt's item model",
                         ours.*part.time / (theirs.*part.time), 3);
    }
    met &= PrintGrowth(dialogs);
    met &= Print("dialog, a click on a filter after 60 others over the first ones",
                 LateOverEarlyClicks(MakeLines(kSizes[0])), 1.4);
    return met;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    try {
        QTemporaryDir folder;
        host::HostOptions options;  // for the texts of the catalogue
        options.settingsFile = folder.filePath("settings.ini");
        host::Host host(options);
        return Measure() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dialog_bench: %s\n", error.what());
        return 1;
    }
}
