#include <gtest/gtest.h>

#include <cmath>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "export/colunas.h"
#include "export/graoscsv.h"
#include "export/resumocsv.h"
#include "leitores.h"

using namespace measure;
using namespace exporta;

namespace {

using TABELA = std::vector<std::vector<std::string>>;

const ESCALA meioMilimetro{0.5, UNIDADE::mm};

FOTOGRAFIA umGrao(const ESCALA& escala, const std::string& nome = "foto") {
  return {nome, 100, 100, escala, medeTodos({{0.523733F, 'r', 8, 20, 40, 10, 90}}, 100, 100)};
}

// The cell of a row by the name of its column.
std::string celula(const TABELA& t, std::size_t linha, const std::string& coluna) {
  for (std::size_t k = 0; k < t.at(0).size(); ++k) {
    if (t[0][k] == coluna) return t.at(linha).at(k);
  }
  ADD_FAILURE() << "falta a coluna " << coluna;
  return "";
}

TEST(GraosCsv, SemEscalaSoEmPixels) {
  const PASTA pasta;
  impGraosCsv(umGrao({}), "g.csv");
  EXPECT_EQ(leTudo("g.csv"),
            "indice,letra,forma,linha_px,coluna_px,d1_px,d2_px,angulo_graus,correlacao,area_px2,"
            "diametro_equivalente_px,perimetro_px,diametro_menor_px,diametro_maior_px,alongamento,"
            "toca_borda\n"
            "0,r,retangulo,8,20,40,10,90,0.523733,400,22.5675833,100,10,40,4,1\n");
}

TEST(GraosCsv, ComEscalaTambemCalibradoENomesEmIngles) {
  const PASTA pasta;
  impGraosCsv(umGrao(meioMilimetro), "g.csv", IDIOMA::en);
  EXPECT_EQ(leTudo("g.csv"),
            "index,letter,shape,row_px,column_px,d1_px,d2_px,angle_deg,correlation,area_px2,"
            "equivalent_diameter_px,perimeter_px,minor_diameter_px,major_diameter_px,aspect_ratio,"
            "touches_border,row_mm,column_mm,d1_mm,d2_mm,area_mm2,equivalent_diameter_mm,"
            "perimeter_mm,minor_diameter_mm,major_diameter_mm\n"
            "0,r,rectangle,8,20,40,10,90,0.523733,400,22.5675833,100,10,40,4,1,4,10,20,5,"
            "100,11.283792,50,5,20\n");
}

TEST(GraosCsv, GraosApuradosTemApoioEErrosNoFim) {
  const PASTA pasta;
  refine::APURADO a;
  a.figura = {'r', 8.25, 20.5, 40, 10, 90};
  a.correl = 0.5F;
  a.apoio = 0.75;
  a.contraste = 0.25;
  a.erro = {0.125, 0.5, 0.0625, 1, 2};
  impGraosCsv({"f", 100, 100, meioMilimetro, medeApurados({a}, 100, 100), METODO::apurado},
              "g.csv");
  const TABELA t = leCsv(leTudo("g.csv"));
  const TABELA classica = [] {
    impGraosCsv(umGrao(meioMilimetro), "c.csv");
    return leCsv(leTudo("c.csv"));
  }();
  ASSERT_LT(classica[0].size(), t[0].size());
  for (std::size_t k = 0; k < classica[0].size(); ++k) EXPECT_EQ(t[0][k], classica[0][k]);
  const std::pair<const char*, const char*> esperados[] = {
      {"linha_px", "8.25"},      {"coluna_px", "20.5"},     {"linha_mm", "4.125"},
      {"apoio", "0.75"},         {"contraste", "0.25"},     {"erro_linha_px", "0.125"},
      {"erro_coluna_px", "0.5"}, {"erro_d1_px", "0.0625"},  {"erro_d2_px", "1"},
      {"erro_d2_mm", "0.5"},     {"erro_angulo_graus", "2"}};
  for (const auto& [nome, valor] : esperados) EXPECT_EQ(celula(t, 1, nome), valor) << nome;
  EXPECT_EQ(t[0].back(), "erro_d2_mm");
  impGraosCsv({"vazia", 9, 9, meioMilimetro, {}, METODO::apurado}, "v.csv");
  EXPECT_EQ(leCsv(leTudo("v.csv")), TABELA{t[0]});
}

TEST(GraosCsv, OErroDoUnicoTamanhoApareceDuasVezes) {
  const PASTA pasta;
  refine::APURADO a;
  a.figura = {'q', 8.25, 20.5, 40, 40, 10};
  a.erro = {0.1, 0.1, 0.25, 0, 1};
  impGraosCsv({"f", 100, 100, {}, medeApurados({a}, 100, 100), METODO::apurado}, "g.csv");
  EXPECT_EQ(celula(leCsv(leTudo("g.csv")), 1, "erro_d2_px"), "0.25");
}

// Two digits of the standard error, and no digit that only binary numbers have.
TEST(GraosCsv, OsAlgarismosSeguemOErro) {
  const PASTA pasta;
  refine::APURADO a;
  a.figura = {'e', 8.2512345, 20.5098765, 21.7637600000001, 10.123456, 31.23456};
  a.apoio = 0.98765432;
  a.contraste = 0.123456;
  a.erro = {0.0123456, 0.5, 0.034, 0.0000123, 12};
  impGraosCsv({"f", 100, 100, {0.05, UNIDADE::mm}, medeApurados({a}, 100, 100), METODO::apurado},
              "g.csv");
  const TABELA t = leCsv(leTudo("g.csv"));
  const std::pair<const char*, const char*> esperados[] = {
      {"linha_px", "8.251"},    {"coluna_px", "20.51"},         {"d1_px", "21.764"},
      {"d1_mm", "1.0882"},      {"d2_px", "10.123456"},         {"angulo_graus", "31"},
      {"apoio", "0.9877"},      {"contraste", "0.1235"},        {"erro_linha_px", "0.0123"},
      {"erro_d1_mm", "0.0017"}, {"diametro_maior_mm", "1.0882"}};
  for (const auto& [nome, valor] : esperados) EXPECT_EQ(celula(t, 1, nome), valor) << nome;
}

TEST(GraosCsv, SemGraosSoOCabecalho) {
  const PASTA pasta;
  impGraosCsv({"vazia", 9, 9, {}, {}}, "g.csv");
  EXPECT_EQ(leCsv(leTudo("g.csv")).size(), 1U);
}

TEST(GraosCsv, CirculoEQuadradoMostramOUnicoTamanhoDuasVezes) {
  const PASTA pasta;
  impGraosCsv(fotoDeExemplo(), "g.csv");
  const TABELA t = leCsv(leTudo("g.csv"));
  ASSERT_EQ(t.size(), 13U);
  const char* formas[] = {"circulo", "quadrado", "retangulo", "elipse"};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(celula(t, i + 1, "forma"), formas[i]);
    EXPECT_EQ(celula(t, i + 1, "d1_px"), "20.5");
    EXPECT_EQ(celula(t, i + 1, "d2_px"), i < 2 ? "20.5" : "10.25");
    EXPECT_EQ(celula(t, i + 1, "indice"), std::to_string(i));
    EXPECT_EQ(celula(t, i + 1, "toca_borda"), "0");
  }
}

TEST(GraosCsv, TabelaDeVariasFotosTemONomeNaPrimeiraColuna) {
  const PASTA pasta;
  TABELA_GRAOS t = abreGraosCsv("todos.csv", UNIDADE::mm);
  acrescenta(t, umGrao(meioMilimetro, "a,\"b\"\nc.jpg"));
  acrescenta(t, {"vazia", 9, 9, meioMilimetro, {}});
  acrescenta(t, umGrao({0.25, UNIDADE::mm}, "S\xE3o.jpg"));
  conclui(std::move(t));
  const TABELA lida = leCsv(leTudo("todos.csv"));
  ASSERT_EQ(lida.size(), 3U);
  EXPECT_EQ(lida[0][0], "foto");
  EXPECT_EQ(lida[0].size(), 1 + nomesDoGrao(METODO::classico, UNIDADE::mm, IDIOMA::pt).size());
  EXPECT_EQ(lida[1].size(), lida[0].size());
  EXPECT_EQ(lida[1][0], "a,\"b\"\nc.jpg");
  EXPECT_EQ(lida[2][0], "S\uFFFDo.jpg");
  EXPECT_EQ(celula(lida, 1, "area_mm2"), "100");
  EXPECT_EQ(celula(lida, 2, "area_mm2"), "25");
}

TEST(GraosCsv, FotoDeOutraUnidadeEhErro) {
  const PASTA pasta;
  TABELA_GRAOS t = abreGraosCsv("todos.csv", UNIDADE::mm);
  EXPECT_EQ(erroDe([&] { acrescenta(t, umGrao({}, "b.jpg")); }),
            "Erro: Fotografias com unidades diferentes: b.jpg");
}

TEST(GraosCsv, DiscoCheioEhErro) {
  const PASTA pasta;
  std::filesystem::create_symlink("/dev/full", "g.csv.parcial");
  EXPECT_EQ(erroDe([&] { impGraosCsv(umGrao({}), "g.csv"); }),
            "Erro gravacao arquivo g.csv.parcial");
}

RESUMO resumoDe(const FOTOGRAFIA& f, const std::vector<double>& aberturas = {}) {
  return resume(f, GRANDEZA::menor, PESO::volume, aberturas);
}

TEST(ResumoCsv, UmaLinhaPorFotoEUmaDoTotal) {
  const PASTA pasta;
  const FOTOGRAFIA a = umGrao(meioMilimetro, "a.jpg");
  const FOTOGRAFIA b = {"b.jpg", 100, 100, meioMilimetro,
                        medeTodos({{0.5F, 'c', 50, 50, 30, 30, 0}}, 100, 100)};
  ACUMULADO todos;
  todos.grandeza = GRANDEZA::menor;
  todos.peso = PESO::volume;
  acumula(todos, a);
  acumula(todos, b);
  const std::vector<double> malhas = {5, 12.5};
  impResumoCsv({{"a.jpg", resumoDe(a, malhas)}, {"b.jpg", resumoDe(b, malhas)}},
               resume(todos, malhas), "r.csv");
  const TABELA t = leCsv(leTudo("r.csv"));
  ASSERT_EQ(t.size(), 4U);
  for (const auto& linha : t) EXPECT_EQ(linha.size(), t[0].size());
  EXPECT_EQ(t[3][0], "total");
  EXPECT_EQ(celula(t, 3, "fotos"), "2");
  EXPECT_EQ(celula(t, 3, "graos"), "2");
  EXPECT_EQ(celula(t, 3, "circulos"), "1");
  EXPECT_EQ(celula(t, 1, "circulos"), "0");
  EXPECT_EQ(celula(t, 1, "retangulos"), "1");
  EXPECT_EQ(celula(t, 1, "na_borda"), "1");
  EXPECT_EQ(celula(t, 1, "area_da_foto_mm2"), "2500");
  EXPECT_EQ(celula(t, 3, "graos_por_mm2"), "0.0004");
  EXPECT_EQ(celula(t, 1, "tamanho"), "diametro_menor");
  EXPECT_EQ(celula(t, 1, "peso"), "volume");
  EXPECT_EQ(celula(t, 1, "d50_mm"), "5");
  EXPECT_EQ(celula(t, 2, "d50_mm"), "15");
  EXPECT_EQ(celula(t, 2, "desvio_padrao_mm"), "0");
  EXPECT_EQ(celula(t, 1, "cu"), "1");
  EXPECT_EQ(celula(t, 1, "curtose_fw"), "");
  EXPECT_EQ(celula(t, 1, "retida_fundo"), "0");
  EXPECT_EQ(celula(t, 1, "retida_5_mm"), "1");  // as large as the mesh
  EXPECT_EQ(celula(t, 1, "passante_5_mm"), "0");
  EXPECT_EQ(celula(t, 1, "passante_12.5_mm"), "1");
  EXPECT_EQ(celula(t, 2, "retida_12.5_mm"), "1");
}

TEST(ResumoCsv, CadaNumeroTemSeuIntervalo) {
  const PASTA pasta;
  FOTOGRAFIA a = {"a.jpg", 100, 100, meioMilimetro, {}};
  for (int d = 10; d < 30; ++d)
    a.graos.push_back(mede({0.5F, 'c', 50, 50, static_cast<float>(d), 0, 0}, 0, 100, 100));
  impResumoCsv({{"a.jpg", resumoDe(a, {10})}}, resumoDe(a, {10}), "r.csv");
  impResumoCsv({{"a.jpg", resumoDe(a, {10})}}, resumoDe(a, {10}), "en.csv", IDIOMA::en);
  const TABELA t = leCsv(leTudo("r.csv"));
  for (const std::string nome : {"d5_mm", "d50_mm", "media_mm", "desvio_padrao_mm", "media_fw_phi",
                                 "curtose_fw", "cu", "retida_fundo", "passante_10_mm"}) {
    const double x = std::stod(celula(t, 1, nome));
    EXPECT_LT(std::stod(celula(t, 1, nome + "_de")), x) << nome;
    EXPECT_GT(std::stod(celula(t, 1, nome + "_ate")), x) << nome;
  }
  EXPECT_EQ(celula(t, 1, "reparo"),
            "intervalos de uma so fotografia: nada sabem de outros lugares");
  const TABELA en = leCsv(leTudo("en.csv"));
  EXPECT_EQ(celula(en, 1, "passing_10_mm_high"), celula(t, 1, "passante_10_mm_ate"));
  EXPECT_EQ(celula(en, 1, "remark"),
            "intervals of a single photograph: they know nothing of other places");
}

TEST(ResumoCsv, FotoSemGraosTemCelulasVaziasENaoZeros) {
  const PASTA pasta;
  const FOTOGRAFIA vazia = {"v", 10, 10, {}, {}};
  impResumoCsv({{"v", resumoDe(vazia, {3})}}, resumoDe(vazia, {3}), "r.csv");
  const TABELA t = leCsv(leTudo("r.csv"));
  EXPECT_EQ(celula(t, 1, "graos"), "0");
  EXPECT_EQ(celula(t, 1, "graos_por_px2"), "0");
  for (const char* coluna : {"d5_px", "d50_px", "d95_px", "media_px", "desvio_padrao_px",
                             "media_fw_phi_px", "selecao_fw_phi_px", "assimetria_fw", "curtose_fw",
                             "cu", "cc", "retida_fundo", "retida_3_px", "passante_3_px"}) {
    EXPECT_EQ(celula(t, 1, coluna), "") << coluna;
  }
}

TEST(ResumoCsv, OCabecalhoDizSeOPhiEhDeMilimetrosOuDePixels) {
  const PASTA pasta;
  impResumoCsv({}, resumoDe(umGrao({})), "px.csv", IDIOMA::en);
  impResumoCsv({}, resumoDe(umGrao(meioMilimetro)), "mm.csv", IDIOMA::en);
  const TABELA px = leCsv(leTudo("px.csv"));
  const TABELA mm = leCsv(leTudo("mm.csv"));
  EXPECT_EQ(celula(px, 1, "fw_mean_phi_px"), "-3.321928");
  EXPECT_EQ(celula(mm, 1, "fw_mean_phi"), "-2.321928");
  EXPECT_EQ(celula(mm, 1, "size"), "minor_diameter");
}

TEST(ResumoCsv, LinhaDeOutraUnidadeOuPeneiraEhErro) {
  const PASTA pasta;
  const RESUMO mm = resumoDe(umGrao(meioMilimetro));
  EXPECT_EQ(erroDe([&] {
              impResumoCsv({{"b", resumoDe(umGrao({}))}}, mm, "r.csv");
            }),
            "Erro: Resumo com outras colunas: b");
  EXPECT_EQ(erroDe([&] {
              impResumoCsv({{"c", resumoDe(umGrao(meioMilimetro), {2})}}, mm, "r.csv");
            }),
            "Erro: Resumo com outras colunas: c");
}

}  // namespace
