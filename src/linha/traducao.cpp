#include "linha/traducao.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <span>
#include <string_view>

#include "linha/linha.h"
#include "pim/erro.h"

namespace linha {
namespace {

using exporta::IDIOMA;

// How a message begins. A name, a number or nothing follows.
constexpr auto comecos = std::to_array<FRASE>({
    {"Erro abertura arquivo ", "Can't open file "},
    {"Erro abertura ", "Can't open "},
    {"Erro leitura arquivo", "Can't read file"},
    {"Erro leitura imagem ", "Can't read image "},
    {"Erro leitura da pasta corrente: ", "Can't read the current folder: "},
    {"Erro leitura forma", "Can't read the shape"},
    {"Erro leitura pesos ", "Can't read weights "},
    {"Erro leitura ", "Can't read "},
    {"Erro gravacao arquivo ", "Can't write file "},
    {"Erro gravacao da saida padrao", "Can't write to standard output"},
    {"Erro findMaxLocal: Nao dentro", "findMaxLocal: not inside"},
    {"Erro: Aberturas de peneira devem ser crescentes e maiores que zero: ",
     "Sieve apertures must ascend and be above zero: "},
    {"Erro: Area fora do intervalo ", "Area out of range "},
    {"Erro: Arquivo grande demais ", "File too large "},
    {"Erro: CSV, linha ", "CSV, line "},
    {"Erro: Caractere nulo em ", "Null character in "},
    {"Erro: Correcoes invalidas", "Invalid corrections"},
    {"Erro: Escala invalida ", "Invalid scale "},
    {"Erro: Falta numero no fim do texto", "A number is missing at the end of the text"},
    {"Erro: Falta numero no fim dos parametros",
     "A number is missing at the end of the parameters"},
    {"Erro: Familias invalidas ", "Invalid families "},
    {"Erro: Forma grande demais ", "Shape too large "},
    {"Erro: Forma sem medida ", "Shape without a size "},
    {"Erro: Formas grandes demais em ", "Shapes too large in "},
    {"Erro: Formato de imagem desconhecido ", "Unknown image format "},
    {"Erro: Fotografia medida de outro modo: ", "Photograph measured in another way: "},
    {"Erro: Fotografias com unidades diferentes: ", "Photographs of different units: "},
    {"Erro: Grupos, linha ", "Groups, line "},
    {"Erro: Grupos: sem escala: ", "Groups: without a scale: "},
    {"Erro: Grupos: tabela vazia", "Groups: empty table"},
    {"Erro: IMG_::constructor _mat nulo", "IMG_::constructor null _mat"},
    {"Erro: Imagem nao cabe no formato de ", "Image does not fit the format of "},
    {"Erro: Imagem vazia ", "Empty image "},
    {"Erro: Imagem vazia", "Empty image"},
    {"Erro: JPEG: ", "JPEG: "},
    {"Erro: Kernels demais em ", "Too many kernels in "},
    {"Erro: Maximos locais demais", "Too many local maxima"},
    {"Erro: Memoria de kernels demais em ", "Too much memory for kernels in "},
    {"Erro: Memoria insuficiente", "Not enough memory"},
    {"Erro: Modulo de imagens: ", "Image module: "},
    {"Erro: Modulo do mapa: ", "Map module: "},
    {"Erro: NegPosUm divisao zero", "NegPosUm division by zero"},
    {"Erro: Numero de registros impossivel ", "Impossible number of records "},
    {"Erro: Numero invalido ", "Invalid number "},
    {"Erro: Palavra desconhecida ", "Unknown word "},
    {"Erro: Palavra grande demais", "Word too long"},
    {"Erro: Pixels de kernels demais em ", "Too many pixels of kernels in "},
    {"Erro: Proveniencia invalida", "Invalid provenance"},
    {"Erro: Resumo com outras colunas: ", "Summary with other columns: "},
    {"Erro: deve ter ", "this must hold: "},
    {"Erro: fork: ", "fork: "},
    {"Erro: passoAng nao avanca em ", "passoAng does not advance in "},
    {"Erro: pipe: ", "pipe: "},
});

// How one ends, after ": ".
constexpr auto motivos = std::to_array<FRASE>({
    {"nao sao pesos de um mapa", "these are not the weights of a map"},
    {"camada ilegivel", "a layer can't be read"},
    {"camadas que nao se encaixam", "layers that don't fit each other"},
    {"peso infinito", "an infinite weight"},
    {"MAT-file incompleto", "MAT-file cut short"},
    {"MAT-file precisa ser arquivo comum", "a MAT-file must be an ordinary file"},
    {"MAT-file sem matriz numerica de duas dimensoes",
     "MAT-file without a numeric matrix of two dimensions"},
    {"a primeira deve ser foto,grupo,escala,polaridade",
     "the first one must be photograph,group,scale,polarity"},
    {"amostra invalida", "invalid sample"},
    {"aninhada demais", "nested too deeply"},
    {"aninhadas demais", "nested too deeply"},
    {"arquivo grande demais para este formato", "file too large for this format"},
    {"arquivo incompleto", "file cut short"},
    {"arquivo vazio", "empty file"},
    {"aspas dentro de um campo", "quotes within a field"},
    {"aspas que nao fecham", "quotes that do not end"},
    {"byte zero", "zero byte"},
    {"cabecalho invalido", "invalid header"},
    {"dados corrompidos", "corrupt data"},
    {"elemento fora de 0 a 255", "element outside of 0 to 255"},
    {"forma desconhecida", "unknown shape"},
    {"gesto desconhecido", "unknown gesture"},
    {"grupo sem nome", "group without a name"},
    {"imagem grande demais", "image too large"},
    {"mais de 16 MiB", "more than 16 MiB"},
    {"matriz grande demais", "matrix too large"},
    {"matriz vazia", "empty matrix"},
    {"nao e' uma imagem legivel", "not an image that can be read"},
    {"nao e' uma imagem nem um MAT-file", "neither an image nor a MAT-file"},
    {"numero de campos", "number of fields"},
    {"sao mais de 20000", "there are more than 20000"},
    {"soma nao tem 16 digitos hexadecimais", "soma has not 16 hexadecimal digits"},
    {"texto depois das aspas", "text after the quotes"},
});

// Where it is, in brackets at the end: "(k.cfg, linha 3)".
constexpr std::array<FRASE, 2> lugares = {{{"linha ", "line "}, {"registro ", "record "}}};

struct NUMERADA {
  int numero;
  const char* pt;
};

constexpr auto erros = std::to_array<NUMERADA>({
    {ENOENT, "nao existe"},
    {EACCES, "sem permissao"},
    {EPERM, "nao e' permitido"},
    {EISDIR, "e' uma pasta"},
    {ENOTDIR, "nao e' uma pasta"},
    {ENOSPC, "nao ha mais espaco"},
    {EDQUOT, "a cota acabou"},
    {EROFS, "so de leitura"},
    {EFBIG, "arquivo grande demais"},
    {EEXIST, "ja existe"},
    {EIO, "falha de leitura ou gravacao"},
    {ELOOP, "atalhos em circulo"},
    {EMFILE, "arquivos abertos demais"},
    {ENFILE, "arquivos abertos demais no sistema"},
    {ENAMETOOLONG, "nome comprido demais"},
    {ENOMEM, "memoria insuficiente"},
    {EAGAIN, "recursos insuficientes por ora"},
});

constexpr auto sinais = std::to_array<NUMERADA>({
    {SIGABRT, "abortado"},
    {SIGKILL, "morto, talvez por falta de memoria"},
    {SIGSEGV, "acesso invalido a memoria"},
    {SIGBUS, "acesso invalido a memoria"},
    {SIGFPE, "divisao por zero"},
    {SIGILL, "instrucao invalida"},
    {SIGTERM, "terminado"},
    {SIGINT, "interrompido"},
    {SIGHUP, "terminal fechado"},
    {SIGPIPE, "saida fechada"},
    {SIGXCPU, "tempo de processador esgotado"},
    {SIGXFSZ, "arquivo grande demais"},
});

void traduzMotivo(std::string& s) {
  for (const FRASE& f : motivos) {
    const std::string fim = std::string(": ") + f.pt;
    if (!s.ends_with(fim)) continue;
    s.replace(s.size() - fim.size() + 2, std::string::npos, f.en);
    return;
  }
}

void traduzLugar(std::string& s) {
  if (!s.ends_with(')')) return;
  const std::size_t numero = s.find_last_not_of("0123456789", s.size() - 2);
  if (numero == std::string::npos) return;
  for (const FRASE& f : lugares) {
    const std::size_t n = std::string_view(f.pt).size();
    const bool esta = numero + 1 >= n + 1 && s.compare(numero + 1 - n, n, f.pt) == 0 &&
                      (s[numero - n] == ' ' || s[numero - n] == '(');
    if (esta) s.replace(numero + 1 - n, n, f.en);
  }
}

const char* daTabela(std::span<const NUMERADA> tabela, int numero) {
  for (const NUMERADA& linha : tabela) {
    if (linha.numero == numero) return linha.pt;
  }
  return nullptr;
}

}  // namespace

std::optional<std::string> emIngles(const std::string& mensagem) {
  const FRASE* melhor = nullptr;
  for (const FRASE& f : comecos) {
    const bool serve = mensagem.starts_with(f.pt);
    if (serve && (melhor == nullptr || std::strlen(f.pt) > std::strlen(melhor->pt))) melhor = &f;
  }
  if (melhor == nullptr) return std::nullopt;
  std::string resto = mensagem.substr(std::strlen(melhor->pt));
  traduzMotivo(resto);
  traduzLugar(resto);
  return frases::erro.en + (melhor->en + resto);
}

std::string traduzida(const std::string& mensagem, IDIOMA i) {
  if (i == IDIOMA::pt) return mensagem;
  if (const std::optional<std::string> s = emIngles(mensagem)) return *s;
  const std::string comeco = frases::erro.pt;
  return mensagem.starts_with(comeco) ? frases::erro.en + mensagem.substr(comeco.size()) : mensagem;
}

std::string erroDoSistema(int numero, IDIOMA i) {
  const char* pt = daTabela(erros, numero);
  return i == IDIOMA::en || pt == nullptr ? std::strerror(numero) : pt;
}

std::string nomeDoSinal(int sinal, IDIOMA i) {
  const char* pt = daTabela(sinais, sinal);
  return i == IDIOMA::en || pt == nullptr ? strsignal(sinal) : pt;
}

void emSuaLingua(IDIOMA i, const std::function<void()>& trabalho) {
  if (i == IDIOMA::pt) return trabalho();
  try {
    trabalho();
  } catch (const pim::ERRO& e) {
    pim::erro(traduzida(e.mensagem, i));
  } catch (const pim::CONTAGEM_IMPOSSIVEL& e) {
    throw pim::CONTAGEM_IMPOSSIVEL(traduzida(e.what(), i));
  } catch (const std::bad_alloc&) {
    pim::erro(traduzida("Erro: Memoria insuficiente", i));
  }
}

}  // namespace linha
