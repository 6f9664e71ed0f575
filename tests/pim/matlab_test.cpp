#include <matio.h>

#include <random>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "fabrica.h"
#include "pim/imagem.h"
#include "pim/modulo/formatos.h"

using pim::leArquivoMat;
using pim::RESULTADO;

namespace {

struct FORMATO {
  mat_ft versao = MAT_FT_MAT5;
  matio_compression compressao = MAT_COMPRESSION_NONE;
};

constexpr FORMATO v4 = {MAT_FT_MAT4, MAT_COMPRESSION_NONE};
constexpr FORMATO v5 = {MAT_FT_MAT5, MAT_COMPRESSION_NONE};
constexpr FORMATO v5comprimido = {MAT_FT_MAT5, MAT_COMPRESSION_ZLIB};

void anexaVariavel(mat_t* mat, matvar_t* var, const FORMATO& f) {
  ASSERT_NE(var, nullptr);
  EXPECT_EQ(Mat_VarWrite(mat, var, f.compressao), 0);
  Mat_VarFree(var);
}

mat_t* criaMat(const std::string& nome, const FORMATO& f = v5) {
  return Mat_CreateVer(nome.c_str(), nullptr, f.versao);
}

// The class and type codes of matio for an element type.
template <class T>
struct TIPO;
#define TIPO_MAT(T, CLASSE, DADO)                   \
  template <>                                       \
  struct TIPO<T> {                                  \
    static constexpr matio_classes classe = CLASSE; \
    static constexpr matio_types dado = DADO;       \
  }
TIPO_MAT(double, MAT_C_DOUBLE, MAT_T_DOUBLE);
TIPO_MAT(float, MAT_C_SINGLE, MAT_T_SINGLE);
TIPO_MAT(std::int8_t, MAT_C_INT8, MAT_T_INT8);
TIPO_MAT(std::uint8_t, MAT_C_UINT8, MAT_T_UINT8);
TIPO_MAT(std::int16_t, MAT_C_INT16, MAT_T_INT16);
TIPO_MAT(std::uint16_t, MAT_C_UINT16, MAT_T_UINT16);
TIPO_MAT(std::int32_t, MAT_C_INT32, MAT_T_INT32);
TIPO_MAT(std::uint32_t, MAT_C_UINT32, MAT_T_UINT32);
TIPO_MAT(std::int64_t, MAT_C_INT64, MAT_T_INT64);
TIPO_MAT(std::uint64_t, MAT_C_UINT64, MAT_T_UINT64);

template <class T>
matvar_t* matriz(std::vector<T> porColunas, std::size_t rows, std::size_t cols) {
  std::size_t lados[2] = {rows, cols};
  return Mat_VarCreate("classes", TIPO<T>::classe, TIPO<T>::dado, 2, lados, porColunas.data(), 0);
}

template <class T>
void gravaMat(const std::string& nome, const std::vector<T>& porColunas, std::size_t rows,
              std::size_t cols, const FORMATO& f = v5) {
  mat_t* mat = criaMat(nome, f);
  anexaVariavel(mat, matriz(porColunas, rows, cols), f);
  Mat_Close(mat);
}

template <class T>
void exigeClasseLida() {
  gravaMat<T>("a.mat", {1, 2, 3, 4, 5, 127}, 2, 3);
  const RESULTADO r = leArquivoMat("a.mat");
  EXPECT_EQ(r.erro, "");
  EXPECT_EQ(maiorDiferenca(r.imagem, (cv::Mat_<unsigned char>(2, 3) << 1, 3, 5, 2, 4, 127)), 0);
}

template <class T>
void exigeElementoRecusado(T valor) {
  gravaMat<T>("a.mat", {1, valor, 3}, 1, 3);
  EXPECT_EQ(leArquivoMat("a.mat").erro, "elemento fora de 0 a 255");
}

// Cut at every byte, the file must be refused in silence.
void exigeErroEmTodoCorte(const FORMATO& f) {
  const cv::Mat img = aleatoria(1, 120, CV_8UC1, 5);
  gravaMat<std::uint8_t>("a.mat", {img.data, img.data + 120}, 8, 15, f);
  const BYTES inteiro = deTexto(leTudo("a.mat"));
  ASSERT_EQ(leArquivoMat("a.mat").erro, "");
  for (std::size_t n = 0; n < inteiro.size(); ++n) {
    gravaBytesEm("b.mat", corta(inteiro, n));
    testing::internal::CaptureStderr();
    const RESULTADO r = leArquivoMat("b.mat");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "cut after " << n;
    EXPECT_NE(r.erro, "") << "cut after " << n << " of " << inteiro.size();
  }
}

}  // namespace

TEST(LeArquivoMat, OrdemPorColunasViraOrdemPorLinhasEmTodosOsFormatos) {
  const PASTA pasta;
  const cv::Mat_<unsigned char> certa = (cv::Mat_<unsigned char>(2, 3) << 1, 3, 5, 2, 4, 255);
  for (const FORMATO& f : {v4, v5, v5comprimido}) {
    gravaMat<double>("a.mat", {1, 2, 3, 4, 5, 255}, 2, 3, f);
    const RESULTADO r = leArquivoMat("a.mat");
    EXPECT_EQ(r.erro, "");
    EXPECT_EQ(maiorDiferenca(r.imagem, certa), 0);
  }
}

TEST(LeArquivoMat, TodasAsClassesNumericasSaoLidas) {
  const PASTA pasta;
  exigeClasseLida<double>();
  exigeClasseLida<float>();
  exigeClasseLida<std::int8_t>();
  exigeClasseLida<std::uint8_t>();
  exigeClasseLida<std::int16_t>();
  exigeClasseLida<std::uint16_t>();
  exigeClasseLida<std::int32_t>();
  exigeClasseLida<std::uint32_t>();
  exigeClasseLida<std::int64_t>();
  exigeClasseLida<std::uint64_t>();
}

TEST(LeArquivoMat, ElementoQueNaoCabeEmUmByteEhRecusado) {
  const PASTA pasta;
  exigeElementoRecusado<double>(2.5);
  exigeElementoRecusado<double>(256);
  exigeElementoRecusado<double>(-1);
  exigeElementoRecusado<double>(std::numeric_limits<double>::quiet_NaN());
  exigeElementoRecusado<double>(std::numeric_limits<double>::infinity());
  exigeElementoRecusado<float>(0.001F);
  exigeElementoRecusado<std::int8_t>(-128);
  exigeElementoRecusado<std::int32_t>(300);
  exigeElementoRecusado<std::uint64_t>(std::numeric_limits<std::uint64_t>::max());
}

TEST(LeArquivoMat, LinhaDeClassesConservaAOrdem) {
  const PASTA pasta;
  gravaMat<std::uint8_t>("a.mat", {7, 0, 9, 255}, 1, 4);
  const RESULTADO r = leArquivoMat("a.mat");
  EXPECT_EQ(maiorDiferenca(r.imagem, (cv::Mat_<unsigned char>(1, 4) << 7, 0, 9, 255)), 0);
}

TEST(LeArquivoMat, MatrizVaziaEhErro) {
  const PASTA pasta;
  gravaMat<double>("a.mat", {}, 0, 0);
  EXPECT_EQ(leArquivoMat("a.mat").erro, "matriz vazia");
}

TEST(LeArquivoMat, VariaveisQueNaoSaoMatrizesReaisSaoSaltadas) {
  const PASTA pasta;
  mat_t* mat = criaMat("a.mat");
  std::size_t um[2] = {1, 1};
  std::size_t tres[3] = {1, 1, 1};
  std::string texto = "abc";
  std::size_t lados[2] = {1, 3};
  double real = 1;
  double imaginaria = 2;
  mat_complex_split_t complexo = {&real, &imaginaria};
  const char* campos[] = {"x"};
  anexaVariavel(mat, Mat_VarCreateStruct("s", 2, um, campos, 1), v5);
  anexaVariavel(mat, Mat_VarCreate("t", MAT_C_CHAR, MAT_T_UINT8, 2, lados, texto.data(), 0), v5);
  anexaVariavel(
      mat, Mat_VarCreate("c", MAT_C_DOUBLE, MAT_T_DOUBLE, 2, um, &complexo, MAT_F_COMPLEX), v5);
  anexaVariavel(mat, Mat_VarCreate("v", MAT_C_DOUBLE, MAT_T_DOUBLE, 3, tres, &real, 0), v5);
  anexaVariavel(mat, matriz<double>({42}, 1, 1), v5);
  Mat_Close(mat);
  const RESULTADO r = leArquivoMat("a.mat");
  EXPECT_EQ(r.erro, "");
  EXPECT_EQ(maiorDiferenca(r.imagem, (cv::Mat_<unsigned char>(1, 1) << 42)), 0);
}

TEST(LeArquivoMat, ArquivoSoComEstruturaEhErro) {
  const PASTA pasta;
  mat_t* mat = criaMat("a.mat");
  std::size_t um[2] = {1, 1};
  const char* campos[] = {"x"};
  anexaVariavel(mat, Mat_VarCreateStruct("s", 2, um, campos, 1), v5);
  Mat_Close(mat);
  EXPECT_EQ(leArquivoMat("a.mat").erro, "MAT-file sem matriz numerica de duas dimensoes");
}

TEST(LeArquivoMat, TruncadoEmQualquerByteEhErroSilencioso) {
  const PASTA pasta;
  exigeErroEmTodoCorte(v5);
}

TEST(LeArquivoMat, ComprimidoTruncadoEmQualquerByteEhErroSilencioso) {
  const PASTA pasta;
  exigeErroEmTodoCorte(v5comprimido);
}

TEST(LeArquivoMat, VersaoQuatroTruncadaEmQualquerByteEhErroSilencioso) {
  const PASTA pasta;
  exigeErroEmTodoCorte(v4);
}

TEST(LeArquivoMat, MatrizEnormeDeclaradaEhRecusadaSemMemoria) {
  const PASTA pasta;
  gravaMat<std::uint8_t>("a.mat", {1, 2, 3, 4}, 2, 2);
  std::string bytes = leTudo("a.mat");
  // The two sides are little-endian 32-bit numbers behind the array flags.
  const std::size_t lados = bytes.find(std::string("\2\0\0\0\2\0\0\0", 8));
  ASSERT_NE(lados, std::string::npos);
  bytes.replace(lados, 8, std::string("\0\0\0\x7F\0\0\0\x7F", 8));
  grava("a.mat", bytes);
  EXPECT_NE(leArquivoMat("a.mat").erro, "");
}

// matio itself goes on with what follows the numbers, or with what its memory held.
TEST(LeArquivoMat, MenosNumerosQueAsDimensoesPedemEhErro) {
  const PASTA pasta;
  for (const bool seguida : {false, true}) {
    mat_t* mat = criaMat("a.mat");
    anexaVariavel(mat, matriz<std::uint8_t>({1, 2, 3, 4, 5, 6}, 2, 3), v5);
    std::size_t um[2] = {1, 1};
    double outra = 8;
    if (seguida) {
      anexaVariavel(mat, Mat_VarCreate("o", MAT_C_DOUBLE, MAT_T_DOUBLE, 2, um, &outra, 0), v5);
    }
    Mat_Close(mat);
    std::string bytes = leTudo("a.mat");
    const std::size_t lados = bytes.find(std::string("\2\0\0\0\3\0\0\0", 8));
    ASSERT_NE(lados, std::string::npos);
    bytes[lados + 4] = 9;
    grava("a.mat", bytes);
    EXPECT_EQ(leArquivoMat("a.mat").erro, "MAT-file incompleto") << seguida;
  }
}

TEST(LeArquivoMat, ComprimidoComQualquerByteTrocadoEhErro) {
  const PASTA pasta;
  constexpr std::size_t comprimidos = 128 + 8;  // behind the header and one tag
  gravaMat<std::uint8_t>("a.mat", std::vector<std::uint8_t>(120, 7), 8, 15, v5comprimido);
  const std::string inteiro = leTudo("a.mat");
  ASSERT_EQ(leArquivoMat("a.mat").erro, "");
  for (std::size_t i = comprimidos; i < inteiro.size(); ++i) {
    std::string trocado = inteiro;
    trocado[i] = static_cast<char>(trocado[i] ^ 4);
    grava("b.mat", trocado);
    EXPECT_EQ(leArquivoMat("b.mat").erro, "MAT-file incompleto") << i;
  }
}

TEST(LeImagemMat, MatEhReconhecidoPeloConteudoENaoPeloNome) {
  const PASTA pasta;
  gravaMat<double>("classes.png", {1, 2}, 1, 2);
  cv::Mat_<unsigned char> img;
  pim::le(img, "classes.png");
  EXPECT_EQ(maiorDiferenca(img, (cv::Mat_<unsigned char>(1, 2) << 1, 2)), 0);
}

TEST(LeImagemMat, PngComNomeMatEhLidoComoImagem) {
  const PASTA pasta;
  const cv::Mat cena = cenaCinza(6, 9);
  gravaBytesEm("classes.mat", codificada("png", cena));
  cv::Mat_<unsigned char> img;
  pim::le(img, "classes.mat");
  EXPECT_EQ(maiorDiferenca(img, cena), 0);
}

TEST(LeImagemMat, VersaoQuatroEhLidaPeloNome) {
  const PASTA pasta;
  gravaMat<double>("classes.MAT", {9, 8}, 2, 1, v4);
  cv::Mat_<unsigned char> img;
  pim::le(img, "classes.MAT");
  EXPECT_EQ(maiorDiferenca(img, (cv::Mat_<unsigned char>(2, 1) << 9, 8)), 0);
}

TEST(LeImagemMat, FalhaNomeiaOArquivoEmUmaSoLinha) {
  const PASTA pasta;
  cv::Mat_<unsigned char> img;
  gravaMat<double>("fracao.mat", {0.5}, 1, 1);
  EXPECT_EQ(erroDe([&] { pim::le(img, "fracao.mat"); }),
            "Erro leitura imagem fracao.mat: elemento fora de 0 a 255");
  grava("lixo.mat", "isto nao e' um MAT-file");
  EXPECT_EQ(erroDe([&] { pim::le(img, "lixo.mat"); }),
            "Erro leitura imagem lixo.mat: nao e' uma imagem nem um MAT-file");
}
