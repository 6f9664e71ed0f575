'use strict';
// Shapes made on the page, measured as src/measure measures them.

{
  // The length of an ellipse's outline, by the arithmetic-geometric mean of Gauss and Legendre.
  const perimetroElipse = (d1, d2) => {
    let a = Math.max(d1, d2) / 2;
    let b = Math.min(d1, d2) / 2;
    if (b === 0) return 4 * a;
    let soma = a * a;
    const c = a * a - b * b;
    soma -= c / 2;
    for (let peso = 0.5; Math.abs(a - b) > 1e-15 * a; peso *= 2) {
      const meio = (a - b) / 2;
      [a, b] = [(a + b) / 2, Math.sqrt(a * b)];
      soma -= 2 * peso * meio * meio;
    }
    return 2 * Math.PI * soma / a;
  };

  const meiaCaixa = ({letra, d1, d2, ang}) => {
    const [c, s] = [Math.cos(ang * Math.PI / 180), Math.sin(ang * Math.PI / 180)];
    const [a, b] = [d1 / 2, d2 / 2];
    return letra === 'c' || letra === 'e' ? [Math.hypot(a * c, b * s), Math.hypot(a * s, b * c)] :
      [Math.abs(a * c) + Math.abs(b * s), Math.abs(a * s) + Math.abs(b * c)];
  };

  // Written in the usual way: d1 >= d2, the angle from 0 to 180, of a square from 0 to 90.
  const normal = ({letra, li, ci, d1, d2, ang}) => {
    const dois = letra === 'r' || letra === 'e';
    if (dois && d2 > d1) [d1, d2, ang] = [d2, d1, ang + 90];
    const volta = letra === 'q' ? 90 : 180;
    return {letra, li, ci, d1, d2: dois ? d2 : d1, ang: letra === 'c' ? 0 : ((ang % volta) + volta) % volta};
  };

  // A grain that a person has drawn, as the next run takes it: without errors, and certain.
  vorplex.graoDesenhado = (figura, foto, indice) => {
    const f = normal(figura);
    const {letra, li, ci, d1, d2, ang} = f;
    const area = {c: Math.PI * d1 * d1 / 4, q: d1 * d1, r: d1 * d2, e: Math.PI * d1 * d2 / 4}[letra];
    const perimetro = {c: Math.PI * d1, q: 4 * d1, r: 2 * (d1 + d2), e: perimetroElipse(d1, d2)}[letra];
    const [largura, altura] = meiaCaixa(f);
    const fora = li - altura < -0.5 || ci - largura < -0.5 ||
      li + altura > foto.rows - 0.5 || ci + largura > foto.cols - 0.5;
    return vorplex.novoGrao([indice, letra, li, ci, d1, d2, ang, 1, area, Math.sqrt(4 * area / Math.PI),
                             perimetro, d2, d1, d1 / d2, fora ? 1 : 0, 1, 0, 0, 0, 0, 0, 0], foto);
  };

  const contem = (g, x, y) => {
    const [c, s] = [Math.cos(g.ang * Math.PI / 180), Math.sin(g.ang * Math.PI / 180)];
    const u = 2 * ((x - g.ci) * c + (y - g.li) * s) / g.d1;
    const v = 2 * ((y - g.li) * c - (x - g.ci) * s) / g.d2;
    return g.letra === 'c' || g.letra === 'e' ? u * u + v * v <= 1 : Math.abs(u) <= 1 && Math.abs(v) <= 1;
  };

  // Share of the union of two shapes that both cover, counted on a grid over the box of both.
  vorplex.semelhanca = (a, b) => {
    const [p, q] = [meiaCaixa(a), meiaCaixa(b)];
    if (Math.abs(a.ci - b.ci) > p[0] + q[0] || Math.abs(a.li - b.li) > p[1] + q[1]) return 0;
    const de = [Math.min(a.ci - p[0], b.ci - q[0]), Math.min(a.li - p[1], b.li - q[1])];
    const ate = [Math.max(a.ci + p[0], b.ci + q[0]), Math.max(a.li + p[1], b.li + q[1])];
    const n = 48;
    let ambas = 0;
    let alguma = 0;
    for (let i = 0; i < n; ++i) {
      for (let k = 0; k < n; ++k) {
        const x = de[0] + (k + 0.5) / n * (ate[0] - de[0]);
        const y = de[1] + (i + 0.5) / n * (ate[1] - de[1]);
        const [numa, noutra] = [contem(a, x, y), contem(b, x, y)];
        ambas += numa && noutra;
        alguma += numa || noutra;
      }
    }
    return alguma > 0 ? ambas / alguma : 0;
  };
}
