#include "batch/obra/alvos.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "batch/obra/estado.h"
#include "pim/texto.h"

namespace fs = std::filesystem;

namespace batch {

bool temSufixoDeFoto(const fs::path& nome) {
  constexpr std::array<std::string_view, 9> sufixos = {"pgm",  "ppm", "pnm",  "png", "jpg",
                                                       "jpeg", "tif", "tiff", "bmp"};
  const std::string s = pim::minuscula(pim::sufixo(nome.filename().string()));
  return std::find(sufixos.begin(), sufixos.end(), s) != sufixos.end();
}

namespace {

// Where the file itself lies: links among the folders before it do not count.
fs::path lugarCerto(const fs::path& arquivo) {
  std::error_code falha;
  const fs::path pasta = fs::canonical(arquivo.parent_path(), falha);
  return falha ? arquivo : pasta / arquivo.filename();
}

// The search through the inputs.
struct BUSCA {
  bool recursivo = false;
  fs::path saida;              // canonical; empty when there is none yet
  std::set<fs::path> pastas;   // canonical ones that were entered: loops of links end
  std::set<fs::path> lugares;  // of the photographs taken
  std::vector<fs::path> fotos;

  void toma(const fs::path& arquivo) {
    fs::path lugar = lugarCerto(arquivo);
    if (lugares.insert(lugar).second) fotos.push_back(std::move(lugar));
  }

  void entra(const fs::path& pasta);
};

void BUSCA::entra(const fs::path& pasta) {
  std::error_code falha;
  if (!pastas.insert(fs::canonical(pasta, falha)).second) return;
  std::vector<fs::path> nomes;
  fs::directory_iterator lista(pasta, falha);
  for (; !falha && lista != fs::directory_iterator(); lista.increment(falha)) {
    const fs::path nome = lista->path().filename();
    if (!nome.string().starts_with('.')) nomes.push_back(nome);
  }
  if (falha) return toma(pasta);
  std::sort(nomes.begin(), nomes.end());
  std::vector<fs::path> dentro;
  for (const fs::path& nome : nomes) {
    const fs::path caminho = pasta / nome;
    if (fs::is_directory(caminho, falha)) {
      dentro.push_back(caminho);
    } else if (temSufixoDeFoto(nome)) {
      toma(caminho);
    }
  }
  if (!recursivo) return;
  for (const fs::path& p : dentro) {
    if (fs::canonical(p, falha) != saida && !ehPastaDeResultados(p)) entra(p);
  }
}

// A text that may stand for a folder.
std::string limpo(std::string s) {
  for (char& c : s) {
    if (static_cast<unsigned char>(c) < ' ' || c == 127) c = '_';
  }
  if (s.empty()) s.push_back('_');
  if (s[0] == '.') s[0] = '_';
  constexpr std::size_t maximo = 200;
  if (s.size() > maximo) {
    std::size_t fim = maximo;  // not within a character
    while (fim > maximo - 4 && (static_cast<unsigned char>(s[fim]) & 0xC0U) == 0x80U) --fim;
    s.resize(fim);
  }
  return s;
}

std::size_t profundidade(const fs::path& p) {
  return static_cast<std::size_t>(std::distance(p.begin(), p.end()));
}

// The name with those of so many folders before it, with or without its suffix.
std::string qualificado(const fs::path& arquivo, std::size_t pastas, bool comSufixo) {
  std::string s = arquivo.stem().string();
  if (comSufixo && arquivo.has_extension()) s += '-' + arquivo.extension().string().substr(1);
  for (fs::path p = arquivo.parent_path(); pastas > 0 && p.has_filename(); --pastas) {
    s.insert(0, p.filename().string() + '-');
    p = p.parent_path();
  }
  return limpo(s);
}

// The first way of naming them that tells all of a group apart; plain names when none does.
std::vector<std::string> nomeiaGrupo(const std::vector<fs::path>& grupo) {
  std::size_t maior = 0;
  for (const fs::path& p : grupo) maior = std::max(maior, profundidade(p));
  for (std::size_t tentativa = 0; tentativa < 2 * maior; ++tentativa) {
    std::vector<std::string> nomes;
    nomes.reserve(grupo.size());
    for (const fs::path& p : grupo) {
      nomes.push_back(qualificado(p, tentativa / 2, tentativa % 2 == 1));
    }
    if (std::set<std::string>(nomes.begin(), nomes.end()).size() == grupo.size()) return nomes;
  }
  return std::vector<std::string>(grupo.size(), qualificado(grupo[0], 0, false));
}

}  // namespace

std::vector<std::string> nomesDeResultados(const std::vector<fs::path>& arquivos) {
  std::vector<std::pair<std::string, std::size_t>> ordem;
  for (std::size_t i = 0; i < arquivos.size(); ++i) {
    ordem.emplace_back(qualificado(arquivos[i], 0, false), i);
  }
  std::sort(ordem.begin(), ordem.end());
  std::vector<std::string> nomes(arquivos.size());
  for (std::size_t i = 0, fim = 0; i < ordem.size(); i = fim) {
    std::vector<fs::path> grupo;
    for (; fim < ordem.size() && ordem[fim].first == ordem[i].first; ++fim) {
      grupo.push_back(arquivos[ordem[fim].second]);
    }
    const std::vector<std::string> doGrupo = nomeiaGrupo(grupo);
    for (std::size_t k = 0; k < grupo.size(); ++k) nomes[ordem[i + k].second] = doGrupo[k];
  }

  std::set<std::string> usados(arquivosDoConjunto.begin(), arquivosDoConjunto.end());
  usados.insert(arquivoDaEscolha);
  for (std::string& nome : nomes) {
    const std::string base = nome;
    for (int n = 2; !usados.insert(nome).second; ++n) nome = base + '-' + std::to_string(n);
  }
  return nomes;
}

std::vector<ALVO> achaAlvos(const std::vector<std::string>& entradas, bool recursivo,
                            const std::string& saida) {
  std::error_code falha;
  BUSCA busca{recursivo, fs::canonical(saida, falha), {}, {}, {}};
  for (const std::string& entrada : entradas) {
    const fs::path caminho = entrada.empty() ? fs::path() : fs::absolute(entrada, falha);
    if (fs::is_directory(caminho, falha)) {
      busca.entra(caminho);
    } else {
      busca.toma(caminho);
    }
  }
  const std::vector<std::string> nomes = nomesDeResultados(busca.fotos);
  std::vector<ALVO> alvos;
  for (std::size_t i = 0; i < nomes.size(); ++i) alvos.push_back({busca.fotos[i], nomes[i]});
  return alvos;
}

}  // namespace batch
