#include "vorplex/refine.h"

#include <exception>

#include "api/registros.h"
#include "api/traduz.h"
#include "refine/apura.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

bool parte(double x) {
  return x >= 0 && x <= 1;
}

::refine::MODO_DE_APURAR modo(const RefineOptions& o) {
  if (!(o.min_size >= 0 && o.min_size < o.max_size)) throw Error("sizes out of range");
  if (!parte(o.max_overlap)) throw Error("overlap out of range");
  if (!parte(o.sensitivity)) throw Error("sensitivity out of range");
  if (o.threads < 1 || o.threads > 1024) throw Error("number of threads out of range");
  ::refine::MODO_DE_APURAR m;
  m.familias = o.shapes;
  m.menor = o.min_size;
  m.maior = o.max_size;
  m.sobreposicao = o.max_overlap;
  m.sensibilidade = o.sensitivity;
  m.semLetras = o.keep_shapes;
  m.fios = o.threads;
  return m;
}

// What the callback throws is kept in `lancado` and ends the work, as does false.
pim::PAUSA pausaDe(const std::function<bool()>& keep_going, std::exception_ptr& lancado) {
  if (!keep_going) return {};
  return [&] {
    bool segue = false;
    try {
      segue = keep_going();
    } catch (...) {
      lancado = std::current_exception();
    }
    if (!segue) throw Cancelled("cancelled");
  };
}

Refined apurado(const ::refine::APURADO& a) {
  const ::refine::FIGURA& f = a.figura;
  return {{a.correl, f.forma, f.l, f.c, f.d1, f.d2, f.ang},
          a.apoio,
          a.contraste,
          a.erro[0],
          a.erro[1],
          a.erro[2],
          a.erro[3],
          a.erro[4]};
}

}  // namespace

std::vector<Refined> refine(const Image& image, const std::vector<Detection>& detections,
                            const RefineOptions& options, const std::function<bool()>& keep_going) {
  std::exception_ptr lancado;
  try {
    return api::traduz([&] {
      ::refine::MODO_DE_APURAR m = modo(options);
      m.pausa = pausaDe(keep_going, lancado);
      const ::refine::APURACAO r =
          ::refine::apura(api::matriz(image), api::maxLocais(detections), m);
      std::vector<Refined> saida;
      saida.reserve(r.graos.size());
      for (const ::refine::APURADO& a : r.graos) saida.push_back(apurado(a));
      return saida;
    });
  } catch (const Cancelled&) {
    if (lancado) std::rethrow_exception(lancado);
    throw;
  }
}

}  // namespace vorplex
