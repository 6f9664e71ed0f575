'use strict';
// Numbers as they are written, elements, downloads.

{
  const lingua = vorplex.ajustes.idioma === 'en' ? 'en' : 'pt-BR';
  const inteiro = new Intl.NumberFormat(lingua, {maximumFractionDigits: 0});
  const formatos = new Map();

  vorplex.inteiro = (n) => inteiro.format(n);

  // With so many significant digits; a dash where there is no number.
  vorplex.numero = (x, digitos = 4) => {
    if (x === null || !Number.isFinite(x)) return '–';
    if (x !== 0 && (Math.abs(x) < 1e-4 || Math.abs(x) >= 1e7)) return x.toExponential(digitos - 1);
    if (!formatos.has(digitos)) {
      formatos.set(digitos, new Intl.NumberFormat(lingua, {maximumSignificantDigits: digitos}));
    }
    return formatos.get(digitos).format(x);
  };

  const medida = new Intl.NumberFormat(lingua,
    {minimumSignificantDigits: 4, maximumSignificantDigits: 4, useGrouping: false});
  const porcento = new Intl.NumberFormat(lingua,
    {minimumFractionDigits: 2, maximumFractionDigits: 2});

  // A result, always with four digits.
  vorplex.medida = (x) => x !== null && x !== 0 && Math.abs(x) >= 1e-4 && Math.abs(x) < 1e7 ?
    medida.format(x) : vorplex.numero(x);
  const lugar = new Intl.NumberFormat(lingua, {maximumFractionDigits: 2, useGrouping: false});

  // A place in pixels, to a hundredth.
  vorplex.lugar = (x) => lugar.format(x);
  vorplex.porcento = (x) => x === null ? '–' : porcento.format(100 * x);
}

{
  const {unidade} = vorplex.ajustes.escala;
  vorplex.unidade = unidade === 'um' ? 'µm' : unidade;
}

// A new element with attributes, and children that are elements or texts.
vorplex.elemento = (nome, atributos = {}, ...filhos) => {
  const e = document.createElement(nome);
  for (const [chave, valor] of Object.entries(atributos)) e.setAttribute(chave, valor);
  e.append(...filhos);
  return e;
};

// Hands a file to the reader.
vorplex.baixa = (nome, conteudo) => {
  const url = URL.createObjectURL(conteudo);
  const a = vorplex.elemento('a', {href: url, download: nome});
  document.body.append(a);
  a.click();
  a.remove();
  setTimeout(() => URL.revokeObjectURL(url), 10000);
};

// A number as a reader types it: the decimals follow a comma or a point. NaN when it is none.
vorplex.lido = (texto) => {
  const s = texto.trim().replace(',', '.');
  return /^[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i.test(s) ? Number(s) : NaN;
};

// A number as it is typed: all of its digits, none grouped.
vorplex.digitado = (x) => vorplex.ajustes.idioma === 'en' ? String(x) : String(x).replace('.', ',');

// Runs `f` when nothing has asked for it for so long, in milliseconds.
vorplex.depoisDe = (espera, f) => {
  let relogio = 0;
  return (...partes) => {
    clearTimeout(relogio);
    relogio = setTimeout(() => f(...partes), espera);
  };
};

// A choice among [value, text] pairs; `muda` is called with the value chosen.
vorplex.novaEscolha = (rotulo, opcoes, valor, muda) => {
  const lista = vorplex.elemento('select', {'aria-label': rotulo},
    ...opcoes.map(([chave, texto]) => vorplex.elemento('option', {value: chave}, texto)));
  lista.value = valor;
  lista.addEventListener('change', () => muda(lista.value));
  return lista;
};

for (const e of document.querySelectorAll('[data-t]')) e.textContent = vorplex.t(e.dataset.t);
for (const e of document.querySelectorAll('[data-rotulo]')) {
  e.setAttribute('aria-label', vorplex.t(e.dataset.rotulo));
}
