// A drawing's file on a second thread, its display list in steps on this one.
#include "apps/desktop/Loading.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QThreadPool>

#include "apps/desktop/Texts.h"
#include "apps/painter/ListBuilder.h"

namespace desktop {

namespace {

constexpr qint64 kBetweenLooks = 50;  // milliseconds between two steps of the bar
constexpr qint64 kLarge = 2 << 20;    // bytes; smaller files are there at once

// Shared by both threads. The reader fills it and then has the main thread, where loop is used, end
// the loop; a drawing that nobody waits for any more goes with it.
struct Reading {
    OdDbDatabasePtr drawing;
    std::exception_ptr failure;
    QEventLoop* loop = nullptr;
};

using Read = std::function<OdDbDatabasePtr()>;

void StartReading(const std::shared_ptr<Reading>& reading, const Read& read) {
    QThreadPool::globalInstance()->start([reading = reading, read]() mutable {
        try {
            reading->drawing = read();
        } catch (...) {
            reading->failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [reading = std::move(reading)] {
                if (reading->loop) reading->loop->quit();
            },
            Qt::QueuedConnection);
    });
}

OdDbDatabasePtr ReadBehindBar(QProgressDialog& bar, const Read& read) {
    const auto reading = std::make_shared<Reading>();
    QEventLoop loop;
    reading->loop = &loop;
    StartReading(reading, read);
    const auto cancel =
        QObject::connect(&bar, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    loop.exec();
    reading->loop = nullptr;
    QObject::disconnect(cancel);
    if (bar.wasCanceled()) return {};
    if (reading->failure) std::rethrow_exception(reading->failure);
    return std::move(reading->drawing);
}

std::optional<LoadedDrawing> LoadBehindBar(QWidget* window, const std::string& path,
                                           const Read& read) {
    constexpr int kSteps = 1000;
    const QString name = QFileInfo(QString::fromStdString(path)).fileName();
    QProgressDialog bar(Say("Reading %1…").arg(name), Say("Cancel"), 0, 0, window);
    bar.setWindowTitle(Plain(Say("&Open…")));
    bar.setWindowModality(Qt::WindowModal);
    bar.setAutoReset(false);
    bar.setMinimumWidth(360);
    bar.show();
    LoadedDrawing loaded;
    loaded.drawing = ReadBehindBar(bar, read);
    if (loaded.drawing.isNull()) return std::nullopt;
    bar.setMaximum(kSteps);
    bar.setLabelText(Say("Preparing the view of %1…").arg(name));
    painter::BuildOptions options;
    QElapsedTimer sinceShown;
    options.progress = [&](double done) {
        if (sinceShown.isValid() && sinceShown.elapsed() < kBetweenLooks) return true;
        bar.setValue(static_cast<int>(done * kSteps));
        sinceShown.start();
        return !bar.wasCanceled();
    };
    auto list = painter::BuildDisplayList(*loaded.drawing, options);
    if (!list) return std::nullopt;
    loaded.list = std::make_shared<const painter::DisplayList>(std::move(*list));
    return loaded;
}

}  // namespace

std::optional<LoadedDrawing> LoadDrawing(QWidget* window, const std::string& nativePath,
                                         const host::DwgConverter& converter) {
    const bool convert = host::IsDwg(nativePath);
    const auto read = [=] {
        return convert ? host::ImportDwg(nativePath, converter)
                       : OdDbDatabase::readFile(nativePath);
    };
    std::optional<LoadedDrawing> loaded;
    if (convert || QFileInfo(QString::fromStdString(nativePath)).size() >= kLarge) {
        loaded = LoadBehindBar(window, nativePath, read);
    } else {
        loaded.emplace().drawing = read();
        loaded->list = std::make_shared<const painter::DisplayList>(
            std::move(*painter::BuildDisplayList(*loaded->drawing)));
    }
    if (loaded) loaded->converted = convert;
    return loaded;
}

}  // namespace desktop
