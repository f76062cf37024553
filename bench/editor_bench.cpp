// Measures the dictionary editor as a window: opening it, scrolling it, saving ten edited rows,
// against the sqlite3 program that prints the same table: editor_bench FILE. The user's part is
// played by real events. Times are of the processor, kernel and all threads included, medians of
// five runs; the exit status is 1 when a bound is missed.
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "bench/DictionaryTimes.h"
#include "host/Host.h"
#include "platform/window/CListCtrl.h"
#include "platform/window/qt/WindowHandle.h"
#include "translator/dialogs/ui/ControlesDosEditores.h"
#include "translator/dialogs/ui/IEdicaoDicionario.h"

namespace {

constexpr int kRuns = 5, kEditedRows = 10, kPages = 200;
constexpr double kFrame = 1.0 / 60;  // what takes longer between two pictures is seen as a pause

double Now() { return ProcessorSeconds(RUSAGE_SELF); }

struct Times {
    double open = 0, page = 0, jump = 0, save = 0;
};

CListCtrl& GridOf(CWnd& editor) {
    return dynamic_cast<CListCtrl&>(*editor.GetDlgItem(kListaTermos));
}

// At once, whatever the window system would wait for.
void Paint(QWidget& widget) {
    QApplication::processEvents();
    widget.repaint();
}

// The longest of many pages downwards, then the way to the end and back.
void Scroll(CListCtrl& grid, Times& times) {
    QWidget* widget = WidgetOf(&grid);
    const auto press = [widget](Qt::Key key) {
        const double begin = Now();
        QTest::keyClick(widget, key);
        Paint(*HandleOf(widget)->client);
        return Now() - begin;
    };
    for (int page = 0; page < kPages; ++page) {
        times.page = std::max(times.page, press(Qt::Key_PageDown));
    }
    times.jump = press(Qt::Key_End);
    if (grid.GetTopIndex() + grid.GetCountPerPage() < grid.GetItemCount()) {
        throw std::runtime_error("the grid did not scroll to its end");
    }
    times.jump = std::max(times.jump, press(Qt::Key_Home));
}

void EditRows(CListCtrl& grid, int run) {
    for (int row = 0; row < kEditedRows; ++row) {
        CRect cell;
        grid.GetSubItemRect(row, 1, LVIR_LABEL, cell);
        QWidget* area = HandleOf(WidgetOf(&grid))->client;
        const QPoint middle(cell.CenterPoint().x, cell.CenterPoint().y);
        QTest::mouseClick(area, Qt::LeftButton, {},
                          area->mapFromGlobal(WidgetOf(&grid)->mapToGlobal(middle)));
        QTest::keyClicks(QApplication::focusWidget(), QString("edited %1 %2").arg(run).arg(row));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
}

void StoreAll() {
    static_cast<host::Database&>(*GetElectricalServices()->GetDataManager()->GetDatabase())
        .Commit();
}

// One editor from its opening to its end.
Times Run(int run, int& rows) {
    Times times;
    std::exception_ptr failure;
    const double begin = Now();
    double saving = 0;
    IEdicaoDicionario editor(nullptr);
    QTimer::singleShot(0, qApp, [&] {
        Paint(*WidgetOf(&editor));
        times.open = Now() - begin;
        try {
            CListCtrl& grid = GridOf(editor);
            rows = grid.GetItemCount();
            if (rows < kEditedRows) throw std::runtime_error("the dictionary has too few terms");
            Scroll(grid, times);
            EditRows(grid, run);
        } catch (...) {
            failure = std::current_exception();
        }
        saving = Now();
        QTest::mouseClick(WidgetOf(editor.GetDlgItem(kBotaoOK)), Qt::LeftButton);
    });
    editor.DoModal();
    StoreAll();
    times.save = Now() - saving;
    if (failure) std::rethrow_exception(failure);
    return times;
}

void CheckSaved(int run) {
    const auto terms = traducaoTQ::IBDIdiomas().GetTerms();
    for (int row = 0; row < kEditedRows; ++row) {
        const QString text = QString("edited %1 %2").arg(run).arg(row);
        if (QString(terms->terms.at(row).translations.at(1)) != text) {
            throw std::runtime_error("an edited row was not saved");
        }
    }
}

bool Measure(const char* file) {
    QTemporaryDir folder;
    host::Host host(OptionsFor(file, folder));
    host.OpenDatabase();

    const double print = PrintSeconds(file);
    std::vector<double> open, save;
    double page = 0, jump = 0;
    int rows = 0;
    for (int run = 0; run < kRuns; ++run) {
        const Times times = Run(run, rows);
        open.push_back(times.open);
        save.push_back(times.save);
        page = std::max(page, times.page);
        jump = std::max(jump, times.jump);
        CheckSaved(run);
    }
    std::printf(
        "%d rows: sqlite3 prints %.3f s, the editor opens in %.3f s, a page takes %.1f ms, "
        "the way to the end %.1f ms, saving %.3f s\n",
        rows, print, MedianSeconds(open), page * 1e3, jump * 1e3, MedianSeconds(save));
    bool met = AtMost("opening the editor against sqlite3 printing the table",
                      MedianSeconds(open) / print, 6);
    met &= AtMost("the slowest step of scrolling, in frames of a 60th of a second",
                  std::max(page, jump) / kFrame, 1);
    return AtMost("saving ten edited rows and closing against opening",
                  MedianSeconds(save) / MedianSeconds(open), 1) &&
           met;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: editor_bench FILE\n");
        return 2;
    }
    try {
        return Measure(argv[1]) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "editor_bench: %s\n", error.what());
        return 1;
    }
}
