// The languages: rows of BDLANGUAGE.
#include "translator/langdb/Banco.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

std::vector<IBDIdiomas::structIdioma> IBDIdiomas::GetAllLang() {
    class CQueryGetAllLang : public ConsultaLeitura {
      public:
        std::string GetCacheKey() const override { return "{CQueryGetAllLang}"; }
        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QSqlQuery consulta(banco);
            consulta.prepare(
                "select LANG_KEY, LANG_DESCR, LANG_USE from BDLANGUAGE "
                "order by cast(LANG_KEY as INTEGER)");
            return consulta;
        }
    };

    std::vector<structIdioma> idiomas;
    CKVQueryResponse resposta = BancoDeDados()->ExecuteSync(std::make_shared<CQueryGetAllLang>());
    if (resposta.failed()) return idiomas;
    for (const auto& linha : resposta.getResult()) {
        idiomas.push_back({linha[0].toString(), linha[1].toString(), linha[2].toString()});
    }
    return idiomas;
}

void IBDIdiomas::UpdateLang(structIdioma idioma) {
    class CQueryUpdateLang : public ConsultaEscrita {
      public:
        QString nome;
        QString uso;
        QString chave;

        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QSqlQuery consulta(banco);
            consulta.prepare(
                "update BDLANGUAGE SET LANG_DESCR = :descr , LANG_USE = :use where LANG_KEY = "
                ":key");
            consulta.bindValue(":descr", nome);
            consulta.bindValue(":use", uso);
            consulta.bindValue(":key", chave);
            return consulta;
        }
    };

    auto consulta = std::make_shared<CQueryUpdateLang>();
    consulta->nome = idioma.descr;
    consulta->uso = idioma.use;
    consulta->chave = idioma.key;
    BancoDeDados()->ExecuteAsync(consulta);
}

}  // namespace traducaoTQ
