#include "linha/linha.h"

#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include <algorithm>
#include <opencv2/core.hpp>

#include "linha/parecidas.h"

namespace linha {
namespace {

using exporta::IDIOMA;

std::string letrasCurtas(const std::vector<OPCAO>& opcoes) {
  std::string s = ":";
  for (const OPCAO& o : opcoes) {
    if (temLetra(o)) s += static_cast<char>(o.letra);
    if (temLetra(o) && levaValor(o)) s += ':';
  }
  return s;
}

std::vector<option> nomesLongos(const std::vector<OPCAO>& opcoes) {
  std::vector<option> v;
  for (const OPCAO& o : opcoes) {
    const int leva = levaValor(o) ? required_argument : no_argument;
    v.push_back({o.pt, leva, nullptr, o.letra});
    if (std::string(o.pt) != o.en) v.push_back({o.en, leva, nullptr, o.letra});
  }
  v.push_back({nullptr, 0, nullptr, 0});
  return v;
}

// Options of which `nome` is the beginning, by that one of their names.
std::vector<FRASE> comecadasPor(const std::string& nome, const std::vector<OPCAO>& opcoes) {
  std::vector<FRASE> v;
  for (const OPCAO& o : opcoes) {
    const bool pt = std::string(o.pt).starts_with(nome);
    const bool en = std::string(o.en).starts_with(nome);
    if (pt || en) v.push_back({pt ? o.pt : o.en, en ? o.en : o.pt});
  }
  return v;
}

// The words among `todas` that are like `palavra` in one of the languages.
std::vector<FRASE> parecidasEm(const std::string& palavra, const std::vector<FRASE>& todas) {
  std::vector<std::string> nomes;
  for (const FRASE& f : todas) {
    nomes.emplace_back(f.pt);
    nomes.emplace_back(f.en);
  }
  std::vector<FRASE> v;
  for (const std::string& s : parecidas(palavra, nomes)) {
    const auto de = std::find_if(todas.begin(), todas.end(),
                                 [&s](const FRASE& f) { return s == f.pt || s == f.en; });
    v.push_back(s == de->pt ? FRASE{de->pt, de->pt} : FRASE{de->en, de->en});
  }
  return v;
}

// An option by a long name that getopt didn't know, or of which it knew several.
RECUSA desconhecida(const std::string& palavra, const std::vector<OPCAO>& opcoes) {
  const std::string nome = palavra.substr(2, palavra.find('=') - 2);
  const std::vector<FRASE> muitas = comecadasPor(nome, opcoes);
  if (!nome.empty() && !muitas.empty()) return {&frases::opcaoAmbigua, palavra, muitas};
  std::vector<FRASE> todas;
  for (const OPCAO& o : opcoes) todas.push_back({o.pt, o.en});
  return {&frases::opcaoDesconhecida, palavra, parecidasEm(nome, todas)};
}

// What getopt has just refused. It tells an unknown letter by `optopt`, a word by its place.
RECUSA recusada(int letra, const std::string& palavra, const std::vector<OPCAO>& opcoes) {
  if (letra == ':') return {&frases::faltaValor, palavra, {}};
  if (optopt == 0) return desconhecida(palavra, opcoes);
  const bool existe =
      std::any_of(opcoes.begin(), opcoes.end(), [](const OPCAO& o) { return o.letra == optopt; });
  if (existe) return {&frases::valorDemais, palavra, {}};
  return {&frases::opcaoDesconhecida, std::string{'-', static_cast<char>(optopt)}, {}};
}

// What the program says of an option that is there.
RECUSA julgada(int letra, const std::string& valor, const std::vector<OPCAO>& opcoes,
               const GUARDA& guarda) {
  const auto o = std::find_if(opcoes.begin(), opcoes.end(),
                              [letra](const OPCAO& op) { return op.letra == letra; });
  RECUSA r = {guarda(*o, valor), valor, {}};
  if (r.frase != nullptr) r.talvez = parecidasEm(valor, {o->palavras.begin(), o->palavras.end()});
  return r;
}

}  // namespace

void garanteSaidas() {
  int fd = 0;
  while (fd >= 0 && fd <= STDERR_FILENO) fd = open("/dev/null", O_RDWR);
  if (fd > STDERR_FILENO) close(fd);
}

std::string motivo(const RECUSA& r, IDIOMA i) {
  if (r.frase == nullptr) return "";
  const bool opcao = r.frase == &frases::opcaoDesconhecida || r.frase == &frases::opcaoAmbigua;
  std::string nomes;
  for (std::size_t k = 0; k < r.talvez.size(); ++k) {
    const bool ultima = k + 1 == r.talvez.size();
    nomes += k == 0 ? "" : ultima ? diz(frases::ou, i) : ", ";
    nomes += (opcao ? "--" : "") + std::string(diz(r.talvez[k], i));
  }
  const std::string conselho =
      nomes.empty() ? "" : cv::format(diz(frases::quisDizer, i), nomes.c_str());
  return cv::format(diz(*r.frase, i), r.valor.c_str()) + conselho;
}

RECUSA leOpcoes(std::vector<std::string>& palavras, const PROGRAMA& programa,
                const GUARDA& guarda) {
  const std::vector<OPCAO> opcoes = opcoesDe(programa);
  const std::string curtas = letrasCurtas(opcoes);
  const std::vector<option> longas = nomesLongos(opcoes);
  std::vector<char*> argv;
  argv.reserve(palavras.size() + 1);
  for (std::string& p : palavras) argv.push_back(p.data());
  argv.push_back(nullptr);
  const int argc = static_cast<int>(palavras.size());
  opterr = 0;
  optind = 0;  // begins anew, so that a process may read several command lines
  RECUSA primeira;
  while (true) {
    const int letra = getopt_long(argc, argv.data(), curtas.c_str(), longas.data(), nullptr);
    if (letra == -1) break;
    const RECUSA recusa = letra == '?' || letra == ':'
                              ? recusada(letra, argv[static_cast<std::size_t>(optind) - 1], opcoes)
                              : julgada(letra, optarg == nullptr ? "" : optarg, opcoes, guarda);
    if (primeira.frase == nullptr && recusa.frase != nullptr) primeira = recusa;
  }
  palavras = std::vector<std::string>(argv.begin() + optind, argv.end() - 1);
  return primeira;
}

}  // namespace linha
