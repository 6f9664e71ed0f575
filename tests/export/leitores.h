#pragma once

#include <map>
#include <string>
#include <vector>

#include "measure/resumo.h"

// Strict readers of the exported formats, and what is exported.

// The fields of every line of a CSV file by RFC 4180, lines ended by a line feed. A test failure
// when the text is not well formed.
std::vector<std::vector<std::string>> leCsv(const std::string& texto);

// A JSON value.
struct JSON {
  enum class TIPO { nulo, logico, numero, texto, lista, objeto };
  TIPO tipo = TIPO::nulo;
  bool logico = false;
  double numero = 0;
  std::string texto;
  std::vector<JSON> lista;
  std::map<std::string, JSON> objeto;

  const JSON& operator[](const std::string& nome) const { return objeto.at(nome); }
  const JSON& operator[](std::size_t i) const { return lista.at(i); }
};

// std::runtime_error when the text is not exactly one JSON value, or an object names a member
// twice.
JSON leJson(const std::string& texto);

// A photograph of 100 by 120 pixels with one grain of each letter and angle 0, 30 and 90.
measure::FOTOGRAFIA fotoDeExemplo(const measure::ESCALA& escala = {});
