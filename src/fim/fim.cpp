#undef NDEBUG  // keeps the declaration of __assert_fail in release builds
#include "fim/fim.h"

#include <unistd.h>

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <opencv2/core.hpp>
#include <stdexcept>
#include <string>

#include "pim/erro.h"
#include "pim/texto.h"

namespace fim {
namespace {

// The line goes in one write, so that those of several processes don't mix.
int falha(const std::string& mensagem) {
  std::fflush(stdout);
  const bool terminal = isatty(STDERR_FILENO) != 0;
  const std::string linha = (terminal ? pim::semControles(mensagem) : mensagem) + '\n';
  std::fwrite(linha.data(), 1, linha.size(), stderr);
  return EXIT_FAILURE;
}

}  // namespace

int executa(const std::function<int()>& trabalho) {
  try {
    return trabalho();
  } catch (const pim::ERRO& e) {
    return falha(e.mensagem);
  } catch (const pim::ASSERCAO& a) {
    std::fflush(stdout);
    __assert_fail(a.expressao, a.local.arquivo, a.local.linha, a.local.funcao);
  } catch (const pim::CONTAGEM_IMPOSSIVEL& e) {
    falha(e.what());
    throw std::length_error("vector::reserve");
  } catch (const std::bad_alloc&) {
    return falha("Erro: Memoria insuficiente");
  } catch (const cv::Exception& e) {
    return falha("Erro: " + (e.err.empty() ? std::string(e.what()) : e.err));
  }
}

}  // namespace fim
