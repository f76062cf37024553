// The terms: rows of BDTRANSLATOR, one column per language.
//
// Reading and updating name a language's column by its key, inserting counts the columns by
// position. Both are meant, and the same as long as the keys are 1 to n.
#include <QSqlRecord>
#include <QStringList>

#include "platform/kernel/KVSqlText.h"
#include "translator/langdb/Banco.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

namespace {

using structIdioma = IBDIdiomas::structIdioma;

bool EstaEmUso(const structIdioma& idioma) { return idioma.use == u"1"; }

// Binds the next texts of a term. Where there are too few the statement fails, and without
// languages (which could not be read) it does too, with whatever is bound: then all are, since the
// log of the failure tells what was bound.
void LigarTextos(QSqlQuery& consulta, const std::vector<TQString>& textos, size_t quantos) {
    if (quantos == 0) quantos = textos.size();
    for (size_t i = 0; i < quantos && i < textos.size(); ++i) {
        consulta.addBindValue(QString(textos[i]));
    }
}

}  // namespace

std::unique_ptr<IBDIdiomas::structTraducoes> IBDIdiomas::GetTerms() {
    return GetTerms(GetAllLang());
}

std::unique_ptr<IBDIdiomas::structTraducoes> IBDIdiomas::GetTerms(
    std::vector<structIdioma> idiomas) {
    class CQueryGetTerms : public ConsultaLeitura {
      public:
        std::vector<structIdioma> idiomas;

        // The same whatever languages are in use, although the result is not.
        std::string GetCacheKey() const override { return "{CQueryGetTerms}"; }
        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QStringList colunas;
            for (const structIdioma& idioma : idiomas) {
                if (!EstaEmUso(idioma)) continue;
                colunas << QStringLiteral("LANGUAGE%1").arg(QString(idioma.key));
            }
            QSqlQuery consulta(banco);
            consulta.prepare(
                QStringLiteral("select TRANS_KEY , %1  from BDTRANSLATOR order by TRANS_KEY")
                    .arg(colunas.join(",")));
            return consulta;
        }

        // The rows become terms as they come: both beside each other would be twice the memory.
        CKVQueryResponse Execute(QSqlDatabase banco) const override {
            termos.clear();
            QSqlQuery consulta = Prepare(banco);
            if (consulta.lastError().isValid()) {
                return CKVQueryResponse::Failure(consulta.lastError());
            }
            consulta.setForwardOnly(true);
            if (!consulta.exec()) return CKVQueryResponse::Failure(consulta.lastError());
            const bool codificado = sqltext::NeedsEncoding(banco);
            const int colunas = consulta.record().count();
            while (consulta.next()) termos.push_back(TermoDe(consulta, colunas, codificado));
            if (consulta.lastError().isValid()) {
                return CKVQueryResponse::Failure(consulta.lastError());
            }
            return CKVQueryResponse(CKVQueryResponse::Rows());
        }
        mutable std::vector<structTermo> termos;

      private:
        static structTermo TermoDe(const QSqlQuery& linha, int colunas, bool codificado) {
            structTermo termo;
            termo.key = linha.value(0).toInt();
            termo.translations.reserve(colunas - 1);
            for (int i = 1; i < colunas; ++i) {
                const QString texto = linha.value(i).toString();
                termo.translations.emplace_back(codificado ? sqltext::Decoded(texto) : texto);
            }
            return termo;
        }
    };

    auto consulta = std::make_shared<CQueryGetTerms>();
    consulta->idiomas = std::move(idiomas);
    const CKVQueryResponse resposta = BancoDeDados()->ExecuteSync(consulta);
    if (resposta.failed()) return nullptr;

    auto traducoes = std::make_unique<structTraducoes>();
    for (const structIdioma& idioma : consulta->idiomas) {
        if (EstaEmUso(idioma)) traducoes->languages.push_back(idioma.descr);
    }
    traducoes->terms = std::move(consulta->termos);
    // A host that gathers the rows by itself, or has kept them, has not run Execute.
    for (const std::vector<QVariant>& linha : resposta.getResult()) {
        structTermo& termo = traducoes->terms.emplace_back(structTermo{linha[0].toInt(), {}});
        for (size_t i = 1; i < linha.size(); ++i) termo.translations.push_back(linha[i].toString());
    }
    return traducoes->terms.empty() ? nullptr : std::move(traducoes);
}

void IBDIdiomas::UpdateTerm(structTermo& termo) {
    class CQueryUpdateTerm : public ConsultaEscrita {
      public:
        int chave = 0;
        std::vector<TQString> traducoes;
        std::vector<structIdioma> idiomas;

        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QString texto = "update BDTRANSLATOR SET ";
            size_t usados = 0;
            for (const structIdioma& idioma : idiomas) {
                if (!idioma.use.EqualsNoCase(u"1")) continue;
                if (usados++ > 0) texto += " , ";
                texto += " LANGUAGE" + QString(idioma.key) + " = ? ";
            }
            texto += " where TRANS_KEY = ?";
            QSqlQuery consulta(banco);
            consulta.prepare(texto);
            LigarTextos(consulta, traducoes, usados);
            consulta.addBindValue(chave);
            return consulta;
        }
    };

    auto consulta = std::make_shared<CQueryUpdateTerm>();
    consulta->idiomas = GetAllLang();
    consulta->chave = termo.key;
    consulta->traducoes = termo.translations;
    BancoDeDados()->ExecuteAsync(consulta);
}

void IBDIdiomas::InsertTerm(structTermo& termo) {
    class CQueryInsertTerm : public ConsultaEscrita {
      public:
        int chave = 0;  // not in the statement: the database gives a new row its key
        std::vector<TQString> traducoes;
        std::vector<structIdioma> idiomas;

        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QStringList colunas;
            QStringList marcas;
            for (size_t i = 1; i <= idiomas.size(); ++i) {
                colunas << QStringLiteral("LANGUAGE%1").arg(i);
                marcas << " ? ";
            }
            QSqlQuery consulta(banco);
            consulta.prepare(QStringLiteral("INSERT INTO BDTRANSLATOR ( %1 ) VALUES ( %2 )")
                                 .arg(colunas.join(","))
                                 .arg(marcas.join(",")));
            if (idiomas.empty()) LigarTextos(consulta, traducoes, 0);
            size_t proximo = 0;
            for (const structIdioma& idioma : idiomas) {
                const bool usado = idioma.use.EqualsNoCase(u"1");
                if (!usado) consulta.addBindValue(QString(""));
                if (usado && proximo < traducoes.size()) {
                    consulta.addBindValue(QString(traducoes[proximo++]));
                }
            }
            return consulta;
        }
    };

    auto consulta = std::make_shared<CQueryInsertTerm>();
    consulta->chave = termo.key;
    consulta->traducoes = termo.translations;
    consulta->idiomas = GetAllLang();
    BancoDeDados()->ExecuteAsync(consulta);
}

void IBDIdiomas::DeleteTerm(structTermo& termo) {
    class CQueryDeleteTerm : public ConsultaEscrita {
      public:
        int chave = 0;

        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QSqlQuery consulta(banco);
            consulta.prepare("DELETE FROM BDTRANSLATOR WHERE TRANS_KEY = :key");
            consulta.bindValue(":key", chave);
            return consulta;
        }
    };

    auto consulta = std::make_shared<CQueryDeleteTerm>();
    consulta->chave = termo.key;
    BancoDeDados()->ExecuteAsync(consulta);
}

void IBDIdiomas::SaveTerm(structTermo& termo) {
    if (termo.key > 0) {
        UpdateTerm(termo);
    } else {
        InsertTerm(termo);
    }
}

int IBDIdiomas::GetMaxTermLength() {
    return BancoDeDados()->GetColumnSize("BDTRANSLATOR", "LANGUAGE1");
}

}  // namespace traducaoTQ
