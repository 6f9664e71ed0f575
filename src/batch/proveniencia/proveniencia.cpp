#include "batch/proveniencia/proveniencia.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <nlohmann/json.hpp>

#include "export/valor.h"
#include "motor/avaliacao/avaliacao.h"
#include "pim/erro.h"

namespace batch {
namespace {

using JSON = nlohmann::ordered_json;

constexpr const char* formato = "vorplex proveniencia 1";

[[noreturn]] void recusa(const std::string& porque) {
  pim::erro("Erro: Proveniencia invalida: ", porque);
}

JSON texto(const std::string& s) {
  return exporta::emUtf8(s);
}

JSON emJson(const FOTO_DA_PROVENIENCIA& f) {
  return {
      {"nome", texto(f.nome)}, {"arquivo", texto(f.arquivo)}, {"soma", f.soma}, {"data", f.data}};
}

bool raso(int profundidade, JSON::parse_event_t evento, JSON& /*valor*/) {
  constexpr int maxima = 2;
  const bool abre =
      evento == JSON::parse_event_t::object_start || evento == JSON::parse_event_t::array_start;
  if (abre && profundidade > maxima) recusa("aninhada demais");
  return true;
}

std::string membro(const JSON& j, const char* nome) {
  const auto i = j.find(nome);
  if (i == j.end() || !i->is_string()) recusa(std::string("falta o texto ") + nome);
  return i->get<std::string>();
}

std::optional<std::string> talvez(const JSON& j, const char* nome) {
  return j.contains(nome) ? std::optional(membro(j, nome)) : std::nullopt;
}

const JSON& lista(const JSON& j, const char* nome) {
  const auto i = j.find(nome);
  if (i == j.end() || !i->is_array()) recusa(std::string("falta a lista ") + nome);
  return *i;
}

std::vector<std::string> textos(const JSON& j, const char* nome) {
  std::vector<std::string> v;
  for (const JSON& x : lista(j, nome)) {
    if (!x.is_string()) recusa(std::string(nome) + " nao sao textos");
    v.push_back(x.get<std::string>());
  }
  return v;
}

std::map<std::string, std::string> somas(const JSON& j, const char* nome) {
  const auto i = j.find(nome);
  if (i == j.end() || !i->is_object()) recusa(std::string("falta o objeto ") + nome);
  std::map<std::string, std::string> m;
  for (const auto& [quem, soma] : i->items()) {
    if (!soma.is_string()) recusa(std::string(nome) + " nao sao textos");
    m[quem] = soma.get<std::string>();
  }
  return m;
}

}  // namespace

std::string emJson(const PROVENIENCIA& p, bool comResultados) {
  JSON j = {{"formato", formato}, {"versao", p.versao},        {"instrucoes", p.instrucoes},
            {"idioma", p.idioma}, {"titulo", texto(p.titulo)}, {"argumentos", JSON::array()}};
  for (const std::string& a : p.argumentos) j["argumentos"].push_back(texto(a));
  j["escala"] = p.escala;
  j["arquivoDoKernel"] = texto(p.arquivoDoKernel);
  j["kernel"] = texto(p.kernel);
  if (p.correcoes) j["correcoes"] = texto(*p.correcoes);
  if (p.grupos) j["grupos"] = texto(*p.grupos);
  j["fotografias"] = JSON::array();
  for (const FOTO_DA_PROVENIENCIA& f : p.fotos) j["fotografias"].push_back(emJson(f));
  if (comResultados) {
    j["resultados"] = JSON::object();
    for (const auto& [nome, soma] : p.resultados) j["resultados"][exporta::emUtf8(nome)] = soma;
  }
  return j.dump(1) + '\n';
}

PROVENIENCIA leProveniencia(std::string_view texto_) {
  constexpr std::size_t maximo = std::size_t{16} << 20U;
  if (texto_.size() > maximo) recusa("mais de 16 MiB");
  JSON j;
  try {
    j = JSON::parse(texto_.begin(), texto_.end(), raso);
  } catch (const JSON::exception& e) {
    recusa(e.what());
  }
  if (!j.is_object() || membro(j, "formato") != formato) {
    recusa(std::string("formato nao e' ") + formato);
  }
  PROVENIENCIA p;
  p.versao = membro(j, "versao");
  p.instrucoes = membro(j, "instrucoes");
  p.idioma = membro(j, "idioma");
  p.titulo = membro(j, "titulo");
  p.argumentos = textos(j, "argumentos");
  p.escala = membro(j, "escala");
  p.arquivoDoKernel = membro(j, "arquivoDoKernel");
  p.kernel = membro(j, "kernel");
  p.correcoes = talvez(j, "correcoes");
  p.grupos = talvez(j, "grupos");
  for (const JSON& f : lista(j, "fotografias")) {
    if (!f.is_object()) recusa("fotografia nao e' um objeto");
    p.fotos.push_back(
        {membro(f, "nome"), membro(f, "arquivo"), membro(f, "soma"), membro(f, "data")});
  }
  p.resultados = somas(j, "resultados");
  return p;
}

std::string dataDoArquivo(const std::string& nome) {
  struct stat s {};
  std::tm t{};
  if (stat(nome.c_str(), &s) != 0 || gmtime_r(&s.st_mtime, &t) == nullptr) return "";
  std::string data(32, '\0');
  data.resize(std::strftime(data.data(), data.size(), "%Y-%m-%dT%H:%M:%SZ", &t));
  return data;
}

std::string instrucoesDaMaquina() {
  return motor::avaliadores().front().nome;
}

std::vector<std::string> diferencas(const PROVENIENCIA& antes, const PROVENIENCIA& agora) {
  std::vector<std::string> v;
  const auto compara = [&v](const std::string& quem, const std::string& a, const std::string& b) {
    if (a != b) v.push_back(quem + ": " + (a.empty() ? "-" : a) + " / " + (b.empty() ? "-" : b));
  };
  compara("versao", antes.versao, agora.versao);
  compara("instrucoes", antes.instrucoes, agora.instrucoes);
  const auto soma = [](const PROVENIENCIA& p, const std::string& nome) {
    const auto i = std::find_if(p.fotos.begin(), p.fotos.end(),
                                [&](const FOTO_DA_PROVENIENCIA& f) { return f.nome == nome; });
    return i == p.fotos.end() ? std::string() : i->soma;
  };
  for (const FOTO_DA_PROVENIENCIA& f : antes.fotos) compara(f.arquivo, f.soma, soma(agora, f.nome));
  for (const FOTO_DA_PROVENIENCIA& f : agora.fotos) {
    if (soma(antes, f.nome).empty()) compara(f.arquivo, "", f.soma);
  }
  std::map<std::string, std::string> novos = agora.resultados;
  for (const auto& [nome, s] : antes.resultados) {
    compara(nome, s, novos[nome]);
    novos.erase(nome);
  }
  for (const auto& [nome, s] : novos) compara(nome, "", s);
  return v;
}

}  // namespace batch
