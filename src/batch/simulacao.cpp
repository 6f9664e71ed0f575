#include "batch/simulacao.h"

#include <optional>

#include "batch/obra/soma.h"
#include "batch/pedido/frases.h"

namespace batch {

SINA sina(const RECEITA& r, const ALVO& alvo) {
  if (!livre(r.obra, alvo.nome)) return SINA::semLugar;
  const std::optional<std::string> soma = somaDoArquivo(alvo.arquivo.string());
  if (!soma) return SINA::ilegivel;
  const std::filesystem::path pasta = pronta(r.obra, alvo.nome);
  const std::optional<ESTADO> e = r.opcoes.refaz ? std::nullopt : leEstado(pasta);
  if (!e) return SINA::procurar;
  const ORIGEM nova = origem(r, alvo, *soma);
  const auto temArquivo = [&](const char* sufixo) {
    return intacto(*e, pasta, alvo.nome + sufixo);
  };
  if (e->origem.procura != nova.procura || !temArquivo(".ho1")) return SINA::procurar;
  const bool classico = r.opcoes.metodo == measure::METODO::classico;
  const bool inteiros = classico || intacto(*e, pasta, arquivoDosApurados);
  const bool escolhidos = e->origem.filtro == nova.filtro && inteiros && temArquivo(".ho2");
  if (!escolhidos) return SINA::escolher;
  const bool tudo =
      e->origem.medida == nova.medida && completos(*e, pasta, alvo.nome, r.opcoes.metodo);
  return tudo ? SINA::pronta : SINA::medir;
}

std::string dizSina(const RECEITA& r, const ALVO& alvo, SINA s) {
  const auto frase = [&r](const exporta::FRASE& f) { return diz(f, r.opcoes.idioma); };
  const auto falha = [&](const std::string& porque) {
    return cv::format(frase(falas::aFalhar), alvo.nome.c_str(), porque.c_str());
  };
  const auto faz = [&](const exporta::FRASE& f) { return cv::format(frase(f), alvo.nome.c_str()); };
  switch (s) {
    case SINA::pronta:
      return faz(falas::jaPronta);
    case SINA::medir:
      return faz(falas::aMedir);
    case SINA::escolher:
      return faz(falas::aEscolher);
    case SINA::procurar:
      return faz(falas::aProcurar);
    case SINA::ilegivel:
      return falha(frase(falas::fotoIlegivel));
    default:
      return falha(cv::format(frase(falas::ocupada), pronta(r.obra, alvo.nome).c_str()));
  }
}

}  // namespace batch
