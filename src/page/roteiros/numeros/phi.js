'use strict';
// The phi scale, phi = -log2(size in mm), and the words for it.

vorplex.milimetros = {px: 1, um: 1e-3, mm: 1, cm: 10, m: 1000, in: 25.4}[vorplex.ajustes.escala.unidade];

// Words for sizes are for sizes in millimetres.
vorplex.calibrada = vorplex.ajustes.escala.unidade !== 'px';

vorplex.phi = (tamanho) => -Math.log2(tamanho * vorplex.milimetros);
vorplex.dePhi = (phi) => 2 ** -phi / vorplex.milimetros;

// Least size in mm of each class, the coarsest first: Wentworth (1922), "A scale of grade and class
// terms for clastic sediments".
vorplex.wentworth = [['matacao', 256], ['bloco', 64], ['seixo', 4], ['granulo', 2],
                     ['areiaMuitoGrossa', 1], ['areiaGrossa', 1 / 2], ['areiaMedia', 1 / 4],
                     ['areiaFina', 1 / 8], ['areiaMuitoFina', 1 / 16], ['silte', 1 / 256], ['argila', 0]]
  .map(([nome, de], k, lista) => ({nome, de, ate: k > 0 ? lista[k - 1][1] : Infinity}));

vorplex.classeDeWentworth = (tamanho) =>
  vorplex.wentworth.find(({de}) => tamanho * vorplex.milimetros >= de);

// Shares of the weight in the classes between the finest and the coarsest grain, the coarsest first.
vorplex.porClasseDeWentworth = ({graos, total}) => {
  if (graos.length === 0) return [];
  const pesos = new Map(vorplex.wentworth.map((classe) => [classe, {graos: 0, peso: 0}]));
  for (const g of graos) {
    const soma = pesos.get(vorplex.classeDeWentworth(g.tamanho));
    ++soma.graos;
    soma.peso += g.peso;
  }
  const de = vorplex.wentworth.indexOf(vorplex.classeDeWentworth(graos.at(-1).tamanho));
  const ate = vorplex.wentworth.indexOf(vorplex.classeDeWentworth(graos[0].tamanho));
  return vorplex.wentworth.slice(de, ate + 1).map((classe) =>
    ({...classe, graos: pesos.get(classe).graos, parte: pesos.get(classe).peso / total}));
};

// What a graphic standard deviation is called: Folk and Ward (1957), with the class that Folk
// (1966) put between good and moderate sorting.
vorplex.nomeDaSelecao = (selecao) => {
  const limites = [['muitoBem', 0.35], ['bem', 0.5], ['quaseBem', 0.71], ['moderada', 1], ['mal', 2],
                   ['muitoMal', 4], ['pessima', Infinity]];
  return limites.find(([, ate]) => selecao < ate)[0];
};

// Whether the curve reaches from 5 to 95 percent, so that the percentiles of Folk and Ward lie
// between grains: else the finest and the coarsest grain stand for them.
vorplex.alcancaFolkWard = ({acumulada}) =>
  acumulada.length > 0 && acumulada[0] <= 0.05 && acumulada.at(-1) >= 0.95;
