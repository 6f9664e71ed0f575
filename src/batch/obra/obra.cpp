#include "batch/obra/obra.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <opencv2/core.hpp>
#include <system_error>
#include <utility>
#include <vector>

#include "batch/obra/estado.h"
#include "batch/pedido/frases.h"
#include "linha/traducao.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

constexpr const char* prefixoNova = "nova-";
constexpr const char* prefixoVelha = "velha-";

bool ehResultado(const std::string& arquivo, const std::string& nome) {
  const auto feitos = arquivosDaFoto(nome);
  return arquivo == arquivoDoEstado || arquivo == arquivoDasMensagens ||
         std::find(feitos.begin(), feitos.end(), arquivo) != feitos.end();
}

// Empties the folder that `pronta` has replaced: what is not a result moves over.
void desmonta(const fs::path& velha, const fs::path& pronta, const std::string& nome) {
  std::error_code falha;
  std::vector<fs::path> dentro;
  for (fs::directory_iterator i(velha, falha); !falha && i != fs::directory_iterator();
       i.increment(falha)) {
    dentro.push_back(i->path().filename());
  }
  for (const fs::path& arquivo : dentro) {
    if (ehResultado(arquivo.string(), nome)) {
      fs::remove(velha / arquivo, falha);
    } else if (!fs::exists(fs::symlink_status(pronta / arquivo, falha))) {
      fs::rename(velha / arquivo, pronta / arquivo, falha);
    }
  }
  fs::remove(velha, falha);
}

// Ends what a killed run was about to do.
void limpaSobras(const OBRA& o) {
  std::error_code falha;
  std::vector<std::string> dentro;
  for (fs::directory_iterator i(o.pasta, falha); !falha && i != fs::directory_iterator();
       i.increment(falha)) {
    dentro.push_back(i->path().filename().string());
  }
  for (const std::string& s : dentro) {
    if (!s.starts_with(prefixoVelha)) {
      fs::remove_all(o.pasta / s, falha);
      continue;
    }
    const std::string nome = s.substr(std::strlen(prefixoVelha));
    if (fs::exists(fs::symlink_status(pronta(o, nome), falha))) {
      desmonta(o.pasta / s, pronta(o, nome), nome);
    } else {
      fs::rename(o.pasta / s, pronta(o, nome), falha);
    }
  }
}

// The processes of a run that was killed end a moment after it. They hold the lock too, so that
// none of them writes once it is ours. A file system without locks goes without.
bool trava(int fd) {
  constexpr int tentativas = 20;
  for (int i = 0; i < tentativas; ++i) {
    if (flock(fd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return true;
    usleep(100000);
  }
  return false;
}

// As abreObra, but leaves the lock open when it can't be.
std::string tentaAbrir(OBRA& o, const std::string& saida, exporta::IDIOMA idioma) {
  std::error_code falha;
  const auto recusa = [&](const std::string& porque) {
    return cv::format(diz(falas::saidaRuim, idioma), saida.c_str(), porque.c_str());
  };
  o.saida = fs::absolute(saida, falha);
  o.criouSaida = fs::create_directories(o.saida, falha);
  if (falha) return recusa(linha::erroDoSistema(falha.value(), idioma));
  o.trava = open(o.saida.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (o.trava < 0) return recusa(linha::erroDoSistema(errno, idioma));
  if (!trava(o.trava)) return cv::format(diz(falas::saidaEmUso, idioma), saida.c_str());
  o.pasta = o.saida / ".vorplex-lote-obra";
  limpaSobras(o);
  fs::create_directory(o.pasta, falha);
  if (!falha) {
    fs::create_directory(o.pasta / "teste", falha);
    std::error_code ignorada;
    fs::remove(o.pasta / "teste", ignorada);
  }
  return falha ? recusa(linha::erroDoSistema(falha.value(), idioma)) : "";
}

}  // namespace

std::string abreObra(OBRA& o, const std::string& saida, exporta::IDIOMA idioma) {
  std::string porque = tentaAbrir(o, saida, idioma);
  if (!porque.empty() && o.trava >= 0) close(std::exchange(o.trava, -1));
  return porque;
}

void fechaObra(const OBRA& o) {
  std::error_code falha;
  limpaSobras(o);
  fs::remove(o.pasta, falha);
  if (o.criouSaida) fs::remove(o.saida, falha);  // only when it is empty
  close(o.trava);
}

fs::path emObra(const OBRA& o, const std::string& nome) {
  return o.pasta / (prefixoNova + nome);
}

fs::path pronta(const OBRA& o, const std::string& nome) {
  return o.saida / nome;
}

bool livre(const OBRA& o, const std::string& nome) {
  std::error_code falha;
  const fs::path p = pronta(o, nome);
  const fs::file_status aqui = fs::symlink_status(p, falha);
  if (!fs::exists(aqui)) return true;
  return fs::is_directory(aqui) && (fs::is_empty(p, falha) || ehPastaDeResultados(p));
}

bool publica(const OBRA& o, const std::string& nome) {
  std::error_code falha;
  const fs::path velha = o.pasta / (prefixoVelha + nome);
  const fs::path destino = pronta(o, nome);
  const bool havia = fs::exists(fs::symlink_status(destino, falha));
  if (havia) fs::rename(destino, velha, falha);
  if (havia && falha) return false;
  fs::rename(emObra(o, nome), destino, falha);
  if (falha) {
    if (havia) fs::rename(velha, destino, falha);
    return false;
  }
  if (havia) desmonta(velha, destino, nome);
  return true;
}

void abandona(const OBRA& o, const std::string& nome) {
  std::error_code falha;
  fs::remove_all(emObra(o, nome), falha);
}

}  // namespace batch
