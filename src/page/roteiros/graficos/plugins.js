'use strict';
// What Chart.js does not draw by itself.

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

// Upright lines: `peneiras` (values) thin, `linhas` ([value, label, low], ascending) with their label
// at the top of the plot or low in it, one below the other where labels would meet.
vorplex.pluginLinhas = {
  id: 'linhas',
  afterDatasetsDraw(chart, _, {linhas = [], peneiras = []}) {
    const {ctx, chartArea: {top, bottom, left, right}, scales: {x}} = chart;
    const {tinta, fraca, veu} = vorplex.tema;
    const risca = (valor) => {
      const px = x.getPixelForValue(valor);
      ctx.beginPath();
      ctx.moveTo(px, top);
      ctx.lineTo(px, bottom);
      ctx.stroke();
      return px;
    };
    ctx.save();
    ctx.strokeStyle = fraca;
    ctx.lineWidth = 0.75;
    ctx.setLineDash([1, 3]);
    peneiras.forEach(risca);
    ctx.strokeStyle = tinta;
    ctx.lineWidth = 1.25;
    ctx.setLineDash([5, 4]);
    ctx.font = `600 11px ${Chart.defaults.font.family}`;
    ctx.textBaseline = 'top';
    const fins = [];
    const lugares = linhas.map(([valor]) => risca(valor));
    linhas.forEach(([, rotulo, baixo], k) => {
      const px = lugares[k];
      const largura = ctx.measureText(rotulo).width + 6;
      const de = Math.max(left, Math.min(px - largura / 2, right - largura));
      let andar = 0;
      while (fins[andar] > de) ++andar;
      fins[andar] = de + largura;
      const alto = baixo ? bottom - 34 : top + 1 + 16 * andar;
      ctx.fillStyle = veu;
      ctx.fillRect(de, alto, largura, 15);
      ctx.fillStyle = tinta;
      ctx.fillText(rotulo, de + 3, alto + 2);
    });
    ctx.restore();
  },
};

// A band between the `pontos` [height, from, to], ascending.
vorplex.pluginFaixa = {
  id: 'faixa',
  beforeDatasetsDraw({ctx, chartArea: {top, bottom, left, right}, scales: {x, y}}, _, {pontos = []}) {
    if (pontos.length < 2) return;
    ctx.save();
    ctx.beginPath();
    ctx.rect(left, top, right - left, bottom - top);
    ctx.clip();
    ctx.beginPath();
    for (const [p, de] of pontos) ctx.lineTo(x.getPixelForValue(de), y.getPixelForValue(p));
    for (const [p, , ate] of [...pontos].reverse()) {
      ctx.lineTo(x.getPixelForValue(ate), y.getPixelForValue(p));
    }
    ctx.globalAlpha = 0.2;
    ctx.fillStyle = vorplex.tema.marca;
    ctx.fill();
    ctx.restore();
  },
};

// The ground of the page, for pictures and paper.
vorplex.pluginFundo = {
  id: 'fundo',
  beforeDraw({ctx, width, height}) {
    ctx.save();
    ctx.fillStyle = vorplex.tema.papel;
    ctx.fillRect(0, 0, width, height);
    ctx.restore();
  },
};
