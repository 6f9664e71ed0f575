#include "batch/lote.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <string_view>
#include <system_error>

#include "batch/avanco.h"
#include "batch/escolha/escolhido.h"
#include "batch/escolha/frases.h"
#include "batch/fotografia.h"
#include "batch/grupos/grupos.h"
#include "batch/obra/alvos.h"
#include "batch/obra/cabecalho.h"
#include "batch/obra/estado.h"
#include "batch/obra/obra.h"
#include "batch/pedido/frases.h"
#include "batch/pedido/leitura.h"
#include "batch/pedido/opcoes.h"
#include "batch/pedido/tabela.h"
#include "batch/preparo.h"
#include "batch/processo/processo.h"
#include "batch/processo/recursos.h"
#include "batch/proveniencia/proveniencia.h"
#include "batch/proveniencia/repeticao.h"
#include "batch/simulacao.h"
#include "batch/tabelas.h"
#include "export/valor.h"
#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "linha/nomes.h"
#include "linha/traducao.h"
#include "pim/erro.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

enum ESTADO_FINAL { tudoBem = 0, algoFalhou = 1, usoErrado = 2, interrompida = 130 };

// How one photograph ended.
struct FIM_DA_FOTO {
  int fim = fins::falhou;
  std::string porque;  // when it failed
  std::size_t graos = 0;
  std::string foto;           // its checksum
  corrige::FEITAS correcoes;  // by hand
};

// A run.
struct LOTE {
  OPCOES_LOTE opcoes;
  OBRA obra;
  std::vector<corrige::CORRECOES> correcoes;
  PROVENIENCIA proveniencia;
  std::optional<PROVENIENCIA> antes;  // of the run that this one repeats
  std::vector<ALVO> alvos;
  std::vector<double> pixels;  // of each photograph, as far as known beforehand
  std::vector<double> inicios;
  std::vector<double> partes;  // how far each is that is running, 0 to 1
  std::vector<FIM_DA_FOTO> fins;
  AVANCO avanco;

  const char* frase(const exporta::FRASE& f) const { return diz(f, opcoes.idioma); }
};

int recusa(const OPCOES_LOTE& o, const std::string& porque, int estado = usoErrado) {
  std::fprintf(stderr, "%s%s\n", diz(linha::frases::erro, o.idioma), emUmaLinha(porque).c_str());
  return estado;
}

// The message of a photograph that failed takes the place of its results.
void publicaFalha(const LOTE& l, const std::string& nome, const std::string& fala) {
  std::error_code falha;
  abandona(l.obra, nome);
  const fs::path nova = emObra(l.obra, nome);
  fs::create_directory(nova, falha);
  std::ofstream(nova / arquivoDasMensagens, std::ios::binary) << fala;
  marcaFalha(nova);
  if (!publica(l.obra, nome)) abandona(l.obra, nome);
}

void dizFim(LOTE& l, std::size_t i, double pixels, double segundos) {
  const FIM_DA_FOTO& f = l.fins[i];
  const exporta::FRASE& forma = f.fim == fins::feita      ? falas::linhaFeita
                                : f.fim == fins::jaPronta ? falas::linhaPronta
                                                          : falas::linhaFalhou;
  const std::string texto = f.porque.empty() ? std::to_string(f.graos) : f.porque;
  const std::string linha =
      cv::format(l.frase(forma), std::to_string(l.avanco.acabadas).c_str(),
                 std::to_string(l.avanco.total).c_str(), emUmaLinha(l.alvos[i].nome).c_str(),
                 texto.c_str(), pixels / 1e6, segundos);
  if (!l.avanco.terminal || !f.porque.empty()) dizLinha(l.avanco, linha);
  mostra(l.avanco);
}

void andou(LOTE& l, std::size_t i, double parte) {
  l.avanco.emCurso += parte - l.partes[i];
  l.avanco.pixelsEmCurso += (parte - l.partes[i]) * l.pixels[i];
  l.partes[i] = parte;
}

void acabou(LOTE& l, std::size_t i, const TERMINO& t) {
  FIM_DA_FOTO& f = l.fins[i];
  const std::string& nome = l.alvos[i].nome;
  f.fim = t.sinal != 0 ? fins::falhou : t.estado;
  const bool semNome = f.fim == fins::feita && !publica(l.obra, nome);
  if (semNome) f.fim = fins::semLugar;
  const std::optional<ESTADO> e = leEstado(pronta(l.obra, nome));
  const bool bem = f.fim == fins::feita || f.fim == fins::jaPronta;
  if (bem && e) {
    f.graos = e->graos;
    f.foto = e->foto;
    f.correcoes = e->correcoes;
    if (f.fim == fins::feita) l.avanco.pixelsFeitos += static_cast<double>(e->rows) * e->cols;
  } else {
    f.porque = semNome ? cv::format(l.frase(falas::semNome), pronta(l.obra, nome).c_str())
                       : motivo(t, "vorplex-lote", l.opcoes.idioma);
    ++l.avanco.falharam;
    const bool guarda = f.fim == fins::ilegivel && e && e->completo;
    if (f.fim != fins::semLugar && !guarda) publicaFalha(l, nome, t.fala);
    abandona(l.obra, nome);
  }
  andou(l, i, 0);
  ++l.avanco.acabadas;
  l.avanco.pixelsVistos += l.pixels[i];
  const double pixels = bem && e ? static_cast<double>(e->rows) * e->cols : 0;
  dizFim(l, i, pixels, agora() - l.inicios[i]);
}

// All photographs; false when interrupted.
bool fazTodas(LOTE& l, const RECEITA& receita, int aoMesmoTempo) {
  TAREFAS t;
  t.quantas = l.alvos.size();
  t.idioma = l.opcoes.idioma;
  t.aoMesmoTempo = aoMesmoTempo;
  t.comeca = [&](std::size_t i) { l.inicios[i] = agora(); };
  t.faz = [&](std::size_t i) { return fazFotografia(receita, l.alvos[i]); };
  t.andou = [&](std::size_t i, double parte) { andou(l, i, parte); };
  t.acabou = [&](std::size_t i, const TERMINO& fim) { acabou(l, i, fim); };
  double mostrada = 0;
  t.passaTempo = [&] {
    if (agora() - mostrada < 0.2) return;  // searches say something all the time
    mostra(l.avanco);
    mostrada = agora();
  };
  mostra(l.avanco);
  const bool inteira = executaTarefas(t);
  apaga(l.avanco);
  return inteira;
}

// The date of a photograph that is repeated is that of the first time.
FOTO_DA_PROVENIENCIA fotoDaProveniencia(const LOTE& l, std::size_t i) {
  const std::string arquivo = l.alvos[i].arquivo.string();
  FOTO_DA_PROVENIENCIA f{l.alvos[i].nome, l.alvos[i].arquivo.filename().string(), l.fins[i].foto,
                         dataDoArquivo(arquivo)};
  if (!l.antes) return f;
  for (const FOTO_DA_PROVENIENCIA& a : l.antes->fotos) {
    if (a.soma == f.soma && a.nome == f.nome) f.data = a.data;
  }
  return f;
}

// Tables and page, in a process of their own. False when interrupted; `porque` tells why they could
// not be written.
bool juntaTodas(const LOTE& l, const std::string& comando, int processos, const ALCANCE& alcance,
                std::string& porque) {
  CONJUNTO c;
  c.comando = comando;
  c.processos = processos;
  c.correcoes = &l.correcoes;
  c.proveniencia = l.proveniencia;
  c.alcance = alcance;
  for (std::size_t i = 0; i < l.alvos.size(); ++i) {
    if (l.fins[i].porque.empty()) {
      c.prontas.push_back(l.alvos[i]);
      c.proveniencia.fotos.push_back(fotoDaProveniencia(l, i));
    } else {
      c.falharam.push_back(l.alvos[i].nome);
    }
  }
  TAREFAS t;
  t.quantas = 1;
  t.idioma = l.opcoes.idioma;
  t.faz = [&](std::size_t) {
    impConjunto(l.obra, l.opcoes, c);
    return 0;
  };
  t.acabou = [&](std::size_t, const TERMINO& fim) {
    if (fim.estado != 0) porque = motivo(fim, "vorplex-lote", l.opcoes.idioma);
  };
  dizLinha(l.avanco, l.frase(falas::juntando));
  return executaTarefas(t);
}

// How many corrections were made by hand, and those that this run had no photograph for.
void dizCorrecoes(const LOTE& l) {
  if (l.opcoes.correcoes.empty()) return;
  corrige::FEITAS n;
  std::set<std::string> vistas;
  for (const FIM_DA_FOTO& f : l.fins) {
    n += f.correcoes;
    vistas.insert(f.foto);
  }
  const auto texto = [](std::size_t k) { return std::to_string(k); };
  dizLinha(l.avanco, cv::format(l.frase(falas::corrigidos), texto(n.rejeitados).c_str(),
                                texto(n.recuperados).c_str(), texto(n.desenhados).c_str(),
                                texto(n.semPar).c_str()));
  const auto faltam =
      std::count_if(l.correcoes.begin(), l.correcoes.end(),
                    [&](const corrige::CORRECOES& c) { return !vistas.contains(c.soma); });
  if (faltam == 0) return;
  std::fprintf(
      stderr, "%s\n",
      cv::format(l.frase(falas::corrigidasAusentes), std::to_string(faltam).c_str()).c_str());
}

void dizResultado(const LOTE& l, const std::string& tabelas) {
  std::size_t feitas = 0;
  std::size_t prontas = 0;
  std::size_t graos = 0;
  for (const FIM_DA_FOTO& f : l.fins) {
    feitas += f.fim == fins::feita && f.porque.empty() ? 1 : 0;
    prontas += f.fim == fins::jaPronta && f.porque.empty() ? 1 : 0;
    graos += f.graos;
  }
  const auto texto = [](std::size_t n) { return std::to_string(n); };
  dizLinha(l.avanco, cv::format(l.frase(falas::fim), texto(l.alvos.size()).c_str(),
                                texto(feitas).c_str(), texto(prontas).c_str(),
                                texto(l.avanco.falharam).c_str(), texto(graos).c_str()));
  dizCorrecoes(l);
  if (!calibrada(l.opcoes.escala)) dizLinha(l.avanco, l.frase(falas::semEscala));
  dizLinha(l.avanco, cv::format(l.frase(falas::resultados), emUmaLinha(l.opcoes.saida).c_str()));
  if (l.avanco.falharam > 0) std::fprintf(stderr, "%s\n", l.frase(falas::falharam));
  for (std::size_t i = 0; i < l.alvos.size(); ++i) {
    if (l.fins[i].porque.empty()) continue;
    std::fprintf(stderr, "  %s: %s\n", emUmaLinha(l.alvos[i].arquivo.string()).c_str(),
                 l.fins[i].porque.c_str());
  }
  std::ifstream avisos(l.obra.pasta / arquivoDosAvisos, std::ios::binary);
  for (std::string aviso; std::getline(avisos, aviso);) {
    std::fprintf(stderr, "%s\n", cv::format(l.frase(falas::aviso), aviso.c_str()).c_str());
  }
  if (!tabelas.empty()) {
    recusa(l.opcoes, cv::format(l.frase(falas::tabelasFalharam), tabelas.c_str()));
  }
}

// The summary that was left as JSON goes to standard output.
void mostraJson(const LOTE& l) {
  std::ostringstream s;
  s << std::ifstream(l.obra.pasta / arquivoDoJson, std::ios::binary).rdbuf();
  std::fputs(s.str().c_str(), stdout);
}

int interrompe(const LOTE& l) {
  apaga(l.avanco);
  std::fflush(stdout);
  std::fprintf(stderr, "%s\n", l.frase(falas::interrompido));
  return interrompida;
}

// The command as a shell takes it.
std::string comoComando(const std::vector<std::string>& args) {
  const auto simples = [](unsigned char c) {
    return std::isalnum(c) != 0 || c >= 128 ||
           std::string("-_./=,:+").find(static_cast<char>(c)) != std::string::npos;
  };
  std::string s = "vorplex-lote";
  for (const std::string& a : args) {
    s += ' ';
    if (!a.empty() && std::all_of(a.begin(), a.end(), simples)) {
      s += a;
      continue;
    }
    s += '\'';
    for (const char c : a) s += c == '\'' ? "'\\''" : std::string(1, c);
    s += '\'';
  }
  return s;
}

// From what the results are made, as far as it is known before.
PROVENIENCIA proveniencia(const LOTE& l, const std::vector<std::string>& args,
                          const std::string& versao) {
  const OPCOES_LOTE& o = l.opcoes;
  PROVENIENCIA p = l.proveniencia;  // corrections and groups have been read
  p.versao = versao;
  p.instrucoes = instrucoesDaMaquina();
  p.argumentos = args;
  p.idioma = o.idioma == exporta::IDIOMA::en ? "en" : "pt";
  p.titulo = l.antes ? l.antes->titulo : tituloDaPagina(o);
  if (calibrada(o.escala)) exporta::poeNumero(p.escala, o.escala.lado);
  p.escala += nomeDaUnidade(o.escala.unidade);
  return p;
}

// Compares a repetition with the first time; returns how it ended.
int dizRepeticao(const LOTE& l) {
  if (!l.antes) return tudoBem;
  std::string porque;
  const std::string nome = (fs::path(l.opcoes.saida) / arquivoDaProveniencia).string();
  const PROVENIENCIA desta = leProveniencia(leTudo(nome, porque, l.opcoes.idioma));
  const std::vector<std::string> outras = diferencas(*l.antes, desta);
  if (outras.empty()) {
    const std::string quantos = std::to_string(desta.resultados.size());
    dizLinha(l.avanco, cv::format(l.frase(falas::repetiu), quantos.c_str()));
    return tudoBem;
  }
  std::fprintf(stderr, "%s\n", l.frase(falas::naoRepetiu));
  for (const std::string& s : outras) std::fprintf(stderr, "  %s\n", emUmaLinha(s).c_str());
  return algoFalhou;
}

// Comes by a kernel.cfg where none was given, in the output folder `onde.saida`; tudoBem, or how
// the run ends.
int escolhe(LOTE& l, const OBRA& onde) {
  if (!l.opcoes.kernel.empty()) return tudoBem;
  dizLinha(l.avanco, l.frase(falas::escolhendo));
  ESCOLHIDO e;
  if (!escolheKernel(onde, l.opcoes, l.alvos, e)) return interrompe(l);
  if (!e.erro.empty()) return recusa(l.opcoes, e.erro, algoFalhou);
  dizLinha(l.avanco, emUmaLinha(e.dito));
  std::fflush(stdout);
  for (const std::string& aviso : e.avisos) std::fprintf(stderr, "%s\n", aviso.c_str());
  const fs::path saida = onde.saida == l.obra.saida ? fs::path(l.opcoes.saida) : onde.saida;
  l.opcoes.kernel = (saida / arquivoDaEscolha).string();
  return tudoBem;
}

// What kernel.cfg says beyond its kernels; the command line goes before it.
void atende(LOTE& l, const sugere::RECADO& recado) {
  OPCOES_LOTE& o = l.opcoes;
  if (recado.inverte && !o.inverte) {
    const std::string dito = cv::format(l.frase(falas::recadoInverte), o.kernel.c_str());
    dizLinha(l.avanco, emUmaLinha(dito));
  }
  o.inverte |= recado.inverte;
  if (recado.minCorr && o.minCorr.empty()) exporta::poeNumero(o.minCorr, *recado.minCorr);
}

// How many photographs at a time.
int quantosProcessos(LOTE& l, std::uint64_t bytesDosKernels) {
  double maior = 0;
  for (std::size_t i = 0; i < l.alvos.size(); ++i) {
    l.pixels[i] = tamanhoNoCabecalho(l.alvos[i].arquivo.string()).area();
    maior = std::max(maior, l.pixels[i]);
    l.avanco.pixelsTotal += l.pixels[i];
  }
  int n = l.opcoes.processos;
  if (n == 0) n = quantasAoMesmoTempo(processadores(), memoriaLivre(), maior, bytesDosKernels);
  return static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(n), l.alvos.size()));
}

void dizInicio(const LOTE& l, int processos) {
  dizLinha(l.avanco,
           cv::format(l.frase(falas::inicio), std::to_string(l.alvos.size()).c_str(), processos));
}

// Says what would be done. The building site is a folder of its own: nothing of the user's changes.
int diriaFazer(LOTE& l, const std::string& versao) {
  l.avanco.quieto = false;
  const bool jaEscolhido = !l.opcoes.refaz && fs::exists(l.obra.saida / arquivoDaEscolha);
  const OBRA aparte = {l.obra.pasta, l.obra.pasta, -1, false};
  if (const int fim = escolhe(l, jaEscolhido ? l.obra : aparte); fim != tudoBem) return fim;
  RECEITA receita{l.opcoes, l.obra, "", "", versao};
  receita.correcoes = &l.correcoes;
  PREPARO preparo;
  if (!prepara(receita, preparo)) return interrompe(l);
  if (!preparo.erro.empty()) return recusa(l.opcoes, preparo.erro);
  atende(l, preparo.recado);
  dizInicio(l, quantosProcessos(l, preparo.bytes));
  dizLinha(l.avanco,
           cv::format(l.frase(falas::kernelsLidos), std::to_string(preparo.kernels).c_str()));
  bool bem = true;
  for (const ALVO& alvo : l.alvos) {
    const SINA s = sina(receita, alvo);
    bem = bem && s != SINA::ilegivel && s != SINA::semLugar;
    dizLinha(l.avanco, emUmaLinha(dizSina(receita, alvo, s)));
  }
  dizLinha(l.avanco, l.frase(falas::nadaFeito));
  return bem ? tudoBem : algoFalhou;
}

int simula(LOTE& l, const std::string& versao) {
  std::string modelo = (fs::temp_directory_path() / "vorplex-lote-XXXXXX").string();
  if (mkdtemp(modelo.data()) == nullptr) {
    return recusa(l.opcoes, cv::format(l.frase(falas::saidaRuim), modelo.c_str(),
                                       linha::erroDoSistema(errno, l.opcoes.idioma).c_str()));
  }
  l.obra.saida = fs::absolute(l.opcoes.saida);
  l.obra.pasta = modelo;
  std::error_code falha;
  try {
    const int estado = diriaFazer(l, versao);
    fs::remove_all(l.obra.pasta, falha);
    return estado;
  } catch (...) {
    fs::remove_all(l.obra.pasta, falha);
    throw;
  }
}

// What comes after the building site is there and before it is taken away.
int trabalha(LOTE& l, const std::string& versao, const std::vector<std::string>& args) {
  if (const int fim = escolhe(l, l.obra); fim != tudoBem) return fim;
  RECEITA receita{l.opcoes, l.obra, "", "", versao};
  receita.correcoes = &l.correcoes;
  PREPARO preparo;
  if (!prepara(receita, preparo)) return interrompe(l);
  if (!preparo.erro.empty()) return recusa(l.opcoes, preparo.erro);
  atende(l, preparo.recado);
  l.proveniencia = proveniencia(l, args, versao);
  l.proveniencia.kernel = preparo.texto;

  const int processos = quantosProcessos(l, preparo.bytes);
  receita.fios = std::max(processadores() / processos, 1);
  dizInicio(l, processos);
  l.avanco.inicio = agora();
  if (!fazTodas(l, receita, processos)) return interrompe(l);
  std::string tabelas;
  if (!juntaTodas(l, comoComando(args), processos, receita.alcance, tabelas)) return interrompe(l);
  dizResultado(l, tabelas);
  if (!tabelas.empty()) return algoFalhou;
  if (l.opcoes.json) mostraJson(l);
  const int repetida = dizRepeticao(l);
  return l.avanco.falharam > 0 ? algoFalhou : repetida;
}

// Hands the text of a file that the command line names to `usa`, or `sabido` where that is known
// already; returns why it can't be used, or an empty text.
template <class USA>
std::string comTexto(const OPCOES_LOTE& o, const std::string& nome,
                     const std::optional<std::string>& sabido, USA usa) {
  std::string porque;
  const std::string texto = sabido ? *sabido : leTudo(nome, porque, o.idioma);
  if (!porque.empty()) {
    return cv::format(diz(falas::arquivoIlegivel, o.idioma), nome.c_str(), porque.c_str());
  }
  try {
    usa(texto);
  } catch (const pim::ERRO& e) {
    const std::string_view comeco = diz(linha::frases::erro, o.idioma);
    const std::string dita = linha::traduzida(e.mensagem, o.idioma);
    return nome + ": " + dita.substr(dita.starts_with(comeco) ? comeco.size() : 0);
  }
  return "";
}

// Reads corrections and groups; returns what is wrong with them, or an empty text.
std::string lePedidos(LOTE& l) {
  OPCOES_LOTE& o = l.opcoes;
  PROVENIENCIA& p = l.proveniencia;
  std::string erro;
  if (!o.correcoes.empty()) {
    erro = comTexto(o, o.correcoes, l.antes ? l.antes->correcoes : std::nullopt,
                    [&](const std::string& texto) {
                      l.correcoes = corrige::leCorrecoes(texto);
                      p.correcoes = texto;
                    });
  }
  if (!erro.empty() || o.grupos.empty()) return erro;
  if (ehPorPastas(o.grupos)) {
    agrupaPorPastas(l.alvos);
    return "";
  }
  return comTexto(o, o.grupos, l.antes ? l.antes->grupos : std::nullopt,
                  [&](const std::string& texto) {
                    agrupaPorTabela(l.alvos, texto, o.escala);
                    p.grupos = texto;
                  });
}

int executa(LOTE& l, const std::vector<std::string>& args, const std::string& versao) {
  const OPCOES_LOTE& o = l.opcoes;
  const std::vector<std::string> ditas = o.entradas;
  l.opcoes.entradas = linha::comNomesDe(stdin, ditas);
  l.alvos = achaAlvos(o.entradas, o.recursivo, o.saida);
  if (l.alvos.empty()) {
    std::string onde;
    for (const std::string& e : ditas) onde += (onde.empty() ? "" : ", ") + e;
    return recusa(o, cv::format(l.frase(falas::semFotos), onde.c_str()));
  }
  l.proveniencia.arquivoDoKernel = l.antes ? l.antes->arquivoDoKernel : o.kernel;
  const std::string pedidosRuins = lePedidos(l);
  if (!pedidosRuins.empty()) return recusa(o, pedidosRuins);
  l.pixels.resize(l.alvos.size());
  l.inicios.resize(l.alvos.size());
  l.partes.resize(l.alvos.size());
  l.fins.resize(l.alvos.size());
  l.avanco.idioma = o.idioma;
  l.avanco.quieto = o.quieto;
  l.avanco.saida = o.json ? stderr : stdout;
  l.avanco.terminal = isatty(fileno(l.avanco.saida)) != 0;
  l.avanco.total = l.alvos.size();

  preparaSinais();
  if (o.simula) return simula(l, versao);
  const std::string semObra = abreObra(l.obra, o.saida, o.idioma);
  if (!semObra.empty()) return recusa(o, semObra);
  try {
    const int estado = trabalha(l, versao, args);
    fechaObra(l.obra);
    return estado;
  } catch (...) {
    fechaObra(l.obra);
    throw;
  }
}

// Does a recorded run again.
int fazDeNovo(LOTE& l, const std::string& versao) {
  const OPCOES_LOTE pedidas = l.opcoes;
  std::string erro = comTexto(pedidas, pedidas.repete, {},
                              [&](const std::string& texto) { l.antes = leProveniencia(texto); });
  if (erro.empty()) l.opcoes = opcoesDaRepeticao(*l.antes, pedidas, erro);
  if (!erro.empty()) return recusa(pedidas, erro);
  return executa(l, l.antes->argumentos, versao);
}

}  // namespace

int lote(const std::vector<std::string>& args, const std::string& versao) {
  linha::garanteSaidas();
  LOTE l;
  l.opcoes.idioma = linha::idiomaDoAmbiente();
  const std::string erro = leOpcoes(args, l.opcoes, ehFotografiaOuPasta);
  int estado = tudoBem;
  if (!erro.empty()) {
    estado = recusa(l.opcoes, erro);
    std::fprintf(stderr, "%s\n",
                 cv::format(l.frase(linha::frases::vejaAjuda), programa.nome).c_str());
  } else if (l.opcoes.ajuda) {
    std::fputs(linha::ajuda(programa, l.opcoes.idioma).c_str(), stdout);
  } else if (l.opcoes.versao) {
    std::printf("%s %s\n", programa.nome, versao.c_str());
  } else {
    linha::emSuaLingua(l.opcoes.idioma, [&] {
      estado = l.opcoes.repete.empty() ? executa(l, args, versao) : fazDeNovo(l, versao);
    });
  }
  const bool disse = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  if (!disse && estado == tudoBem)
    return recusa(l.opcoes, l.frase(linha::frases::saidaPadrao), algoFalhou);
  return estado;
}

}  // namespace batch
