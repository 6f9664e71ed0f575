'use strict';
// Outlines.

// Vertices [x, y] of the outline of a grain, in px of the photograph.
vorplex.contorno = (g) => {
  const a = g.d1 / 2;
  const b = g.d2 / 2;
  const quadrada = g.letra === 'q' || g.letra === 'r';
  const ang = g.letra === 'c' ? 0 : g.ang * Math.PI / 180;
  const [c, s] = [Math.cos(ang), Math.sin(ang)];
  const cantos = [[-1, -1], [1, -1], [1, 1], [-1, 1]];
  const lados = 40;
  const pontos = quadrada ? cantos : Array.from({length: lados}, (_, i) =>
    [Math.cos(2 * Math.PI * i / lados), Math.sin(2 * Math.PI * i / lados)]);
  return pontos.map(([x, y]) => [g.ci + a * x * c - b * y * s, g.li + a * x * s + b * y * c]);
};

// The same as the commands of an SVG path.
vorplex.caminho = (g) => {
  const f = (x) => x.toFixed(2);
  if (g.letra === 'q' || g.letra === 'r') {
    return `M${vorplex.contorno(g).map(([x, y]) => `${f(x)} ${f(y)}`).join('L')}Z`;
  }
  const ang = g.letra === 'c' ? 0 : g.ang;
  const [c, s] = [Math.cos(ang * Math.PI / 180), Math.sin(ang * Math.PI / 180)];
  const [dx, dy] = [g.d1 / 2 * c, g.d1 / 2 * s];
  const arco = (x, y) => `A${f(g.d1 / 2)} ${f(g.d2 / 2)} ${f(ang)} 0 1 ${f(x)} ${f(y)}`;
  return `M${f(g.ci - dx)} ${f(g.li - dy)}${arco(g.ci + dx, g.li + dy)}${arco(g.ci - dx, g.li - dy)}Z`;
};

// Width and height of the upright box that just holds the grain.
vorplex.caixa = (g) => {
  if (g.letra === 'c') return [g.d1, g.d1];
  const [c, s] = [Math.cos(g.ang * Math.PI / 180), Math.sin(g.ang * Math.PI / 180)];
  const lados = [[g.d1 * c, g.d2 * s], [g.d1 * s, g.d2 * c]];
  return lados.map(([x, y]) => g.letra === 'e' ? Math.hypot(x, y) : Math.abs(x) + Math.abs(y));
};
