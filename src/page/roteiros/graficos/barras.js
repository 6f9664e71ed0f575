'use strict';
// Classes of the histograms, and what Chart.js does not draw by itself.

// Colours that readers with any kind of colour vision tell apart (Okabe and Ito).
vorplex.cores = {c: '#0072b2', q: '#d55e00', r: '#009e73', e: '#cc79a7'};

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

// Edges of the classes of the aspect ratio; the last class is open above 10.
vorplex.classesDeAlongamento = (graos) => {
  let maior = 1.5;
  for (const g of graos) maior = Math.max(maior, Math.min(g.alongamento, 10));
  const passo = [0.05, 0.1, 0.2, 0.25, 0.5].find((p) => (maior - 1) / p <= 16) ?? 1;
  const quantas = Math.floor((maior - 1) / passo + 1e-9) + 1;
  return Array.from({length: quantas + 1}, (_, k) => Math.round((1 + k * passo) * 100) / 100);
};

// The step of the orientation rose in degrees: that of the search where it can be seen in the
// angles, or else classes would get different numbers of its directions.
vorplex.passoDaRosa = (graos) => {
  const passos = [18, 15, 10, 9, 6, 5];
  const cabe = (a, p) => Math.abs(a / p - Math.round(a / p)) < 1e-6;
  return passos.find((p) => graos.every((g) => cabe(g.ang, p))) ?? 10;
};

// The class of `x` among ascending edges; below and above, the first and the last.
vorplex.classe = (x, limites) => {
  let de = 0;
  let ate = limites.length - 1;
  while (ate - de > 1) {
    const meio = (de + ate) >> 1;
    if (x >= limites[meio] * (1 - 1e-12)) de = meio; else ate = meio;
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

// Bars that reach from edge to edge of their class, on any axis.
vorplex.pluginBarras = {
  id: 'barras',
  beforeDatasetsDraw(chart, _, {limites}) {
    if (!limites) return;
    for (const meta of chart.getSortedVisibleDatasetMetas()) {
      meta.data.forEach((barra, k) => {
        const de = meta.xScale.getPixelForValue(limites[k]);
        const ate = meta.xScale.getPixelForValue(limites[k + 1]);
        barra.x = (de + ate) / 2;
        barra.width = Math.max(ate - de - 1, 1);
      });
    }
  },
};

// Upright lines: `peneiras` (values) thin, `linhas` ([value, label], ascending) with their label
// above the plot, or within it where labels would meet.
vorplex.pluginLinhas = {
  id: 'linhas',
  afterDatasetsDraw(chart, _, {linhas = [], peneiras = []}) {
    const {ctx, chartArea: {top, bottom, left, right}, scales: {x}} = chart;
    const risca = (valor) => {
      const px = x.getPixelForValue(valor);
      ctx.beginPath();
      ctx.moveTo(px, top);
      ctx.lineTo(px, bottom);
      ctx.stroke();
      return px;
    };
    ctx.save();
    ctx.strokeStyle = '#8a94a0';
    ctx.lineWidth = 0.75;
    ctx.setLineDash([1, 3]);
    peneiras.forEach(risca);
    ctx.strokeStyle = '#1f2933';
    ctx.lineWidth = 1.25;
    ctx.setLineDash([5, 4]);
    ctx.font = `600 11px ${Chart.defaults.font.family}`;
    ctx.textBaseline = 'top';
    const fins = [];
    const lugares = linhas.map(([valor]) => risca(valor));
    linhas.forEach(([, rotulo], k) => {
      const px = lugares[k];
      const largura = ctx.measureText(rotulo).width + 6;
      const de = Math.max(left, Math.min(px - largura / 2, right - largura));
      let andar = 0;
      while (fins[andar] > de) ++andar;
      fins[andar] = de + largura;
      ctx.fillStyle = 'rgba(255,255,255,0.85)';
      ctx.fillRect(de, top - 16 + 16 * andar, largura, 15);
      ctx.fillStyle = '#1f2933';
      ctx.fillText(rotulo, de + 3, top - 14 + 16 * andar);
    });
    ctx.restore();
  },
};

// White ground, for pictures and paper.
vorplex.pluginFundo = {
  id: 'fundo',
  beforeDraw({ctx, width, height}) {
    ctx.save();
    ctx.fillStyle = '#fff';
    ctx.fillRect(0, 0, width, height);
    ctx.restore();
  },
};
