// Telling the second program what to do.
#include "tests/translator/dialogs/OutroEditor.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <iostream>

namespace {

constexpr int kPaciencia = 120000;

}  // namespace

OutroEditor::OutroEditor(const QString& url) {
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QCoreApplication::applicationDirPath() + "/second_editor", {url});
    EXPECT_EQ(Resposta(), "open");
}

OutroEditor::~OutroEditor() {
    Terminar();
    EXPECT_EQ(processo.exitCode(), 0);
}

void OutroEditor::Mandar(const QString& ordem) {
    processo.write(ordem.toUtf8() + '\n');
    EXPECT_TRUE(processo.waitForBytesWritten());
}

std::string OutroEditor::Resposta() {
    while (processo.canReadLine() || processo.waitForReadyRead(kPaciencia)) {
        const QByteArray linha = processo.readLine().trimmed();
        if (linha.startsWith(kMarca)) return linha.mid(int(sizeof kMarca) - 1).toStdString();
        std::cerr << linha.constData() << "\n";
    }
    return "no answer";
}

std::string OutroEditor::Fazer(const QString& ordem) {
    Mandar(ordem);
    return Resposta();
}

void OutroEditor::Terminar() {
    if (processo.state() == QProcess::NotRunning) return;
    processo.closeWriteChannel();
    EXPECT_TRUE(processo.waitForFinished(kPaciencia));
}
