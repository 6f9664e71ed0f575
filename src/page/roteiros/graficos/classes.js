'use strict';
// Classes of the histograms.

// Edges of the size classes for ascending grains: the sieves, with what lies outside of them; or
// equal steps on the logarithmic axis, a power of ten in 1 to 40 parts.
vorplex.classesDeTamanho = (graos, aberturas) => {
  const menor = graos[0]?.tamanho ?? aberturas[0] ?? 1;
  const maior = graos.at(-1)?.tamanho ?? aberturas.at(-1) ?? 10;
  if (aberturas.length > 0) {
    const fim = aberturas.at(-1);
    const limites = [...aberturas];
    if (menor < aberturas[0]) limites.unshift(Math.min(menor, aberturas[0] / 1.2));
    if (maior >= fim) limites.push(Math.max(maior * (1 + 1e-9), fim * 1.2));
    return limites.length > 1 ? limites : [limites[0] / 1.2, ...limites];
  }
  const quantas = Math.min(Math.max(2 * Math.sqrt(graos.length), 6), 24);
  const limitesDe = (partes) => {
    const limites = [];
    for (let k = Math.floor(Math.log10(menor) * partes); ; ++k) {
      limites.push(10 ** (k / partes));
      if (limites.at(-1) > maior) break;
    }
    return limites[1] <= menor ? limites.slice(1) : limites;
  };
  const partes = [40, 20, 10, 5, 2].find((p) => limitesDe(p).length - 1 <= quantas) ?? 1;
  return limitesDe(partes);
};

// How far the digits of a list scatter one and the same aspect ratio: sizes have five decimals.
vorplex.folgaDoAlongamento = 1e-5;

// Edges of the classes of the aspect ratio; the last class is open above 10.
vorplex.classesDeAlongamento = (graos) => {
  let maior = 1.5;
  for (const g of graos) maior = Math.max(maior, Math.min(g.alongamento, 10));
  const passo = [0.05, 0.1, 0.2, 0.25, 0.5].find((p) => (maior - 1) / p <= 16) ?? 1;
  const quantas = Math.floor((maior - 1) / passo * (1 + 1e-5) + 1e-4) + 1;
  return Array.from({length: quantas + 1}, (_, k) => Math.round((1 + k * passo) * 100) / 100);
};

// The step of the orientation rose in degrees: that of the search where it can be seen in the
// angles, or else classes would get different numbers of its directions.
vorplex.passoDaRosa = (graos) => {
  const passos = [18, 15, 10, 9, 6, 5];
  const cabe = (a, p) => Math.abs(a / p - Math.round(a / p)) < 1e-6;
  return passos.find((p) => graos.every((g) => cabe(g.ang, p))) ?? 10;
};

// The class of `x` among ascending edges; below and above, the first and the last. What lies so
// little below an edge as `folga` of it lies on the edge.
vorplex.classe = (x, limites, folga = 1e-12) => {
  let de = 0;
  let ate = limites.length - 1;
  while (ate - de > 1) {
    const meio = (de + ate) >> 1;
    if (x >= limites[meio] * (1 - folga)) de = meio; else ate = meio;
  }
  return de;
};

// Marks 1, 2, 5 of each power of ten, or closer ones where these are fewer than four.
vorplex.marcasLogaritmicas = (menor, maior) => {
  const marcas = (digitos) => {
    const lista = [];
    for (let k = Math.floor(Math.log10(menor)); k <= Math.log10(maior); ++k) {
      for (const d of digitos) lista.push(Number(`${d}e${k}`));
    }
    return lista.filter((x) => x >= menor * 0.999 && x <= maior * 1.001);
  };
  const cada = (passo) => Array.from({length: Math.round(9 / passo)}, (_, k) => +(1 + k * passo).toFixed(2));
  const escolhas = [[1], [1, 2, 5], [1, 1.5, 2, 3, 4, 5, 6, 8], cada(0.5), cada(0.2), cada(0.1)];
  return escolhas.map(marcas).find((lista) => lista.length >= 4) ?? marcas(cada(0.05));
};
