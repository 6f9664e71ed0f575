#include "batch/grupos/csv.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"

using namespace batch;

namespace {

using CAMPOS = std::vector<std::string>;

std::vector<CAMPOS> lidos(const std::string& texto) {
  std::vector<CAMPOS> v;
  for (const LINHA_DE_CSV& l : leCsv(texto)) v.push_back(l.campos);
  return v;
}

TEST(Csv, CamposELinhas) {
  EXPECT_EQ(lidos("a,b\nc,d\n"), (std::vector<CAMPOS>{{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(lidos("\xEF\xBB\xBF"
                  "a,b\r\n\r\n,\r\nc"),
            (std::vector<CAMPOS>{{"a", "b"}, {"", ""}, {"c"}}));
  EXPECT_EQ(lidos(""), std::vector<CAMPOS>{});
  EXPECT_EQ(lidos("a,"), (std::vector<CAMPOS>{{"a", ""}}));
}

TEST(Csv, AspasGuardamVirgulasFinsDeLinhaEAspas) {
  EXPECT_EQ(lidos("\"a,\"\"b\"\"\nc\",d\ne"), (std::vector<CAMPOS>{{"a,\"b\"\nc", "d"}, {"e"}}));
  EXPECT_EQ(leCsv("\"a\nb\"\nc")[1].numero, 3U);
}

TEST(Csv, OQueNaoEhCsvEhRecusadoComALinha) {
  const auto erro = [](const std::string& texto) { return erroDe([&] { leCsv(texto); }); };
  EXPECT_EQ(erro("a\n\"b\nc"), "Erro: CSV, linha 2: aspas que nao fecham");
  EXPECT_EQ(erro("a\nb\"c\""), "Erro: CSV, linha 2: aspas dentro de um campo");
  EXPECT_EQ(erro("\"a\"b"), "Erro: CSV, linha 1: texto depois das aspas");
  EXPECT_EQ(erro(std::string("a\0b", 3)), "Erro: CSV, linha 1: byte zero");
}

}  // namespace
