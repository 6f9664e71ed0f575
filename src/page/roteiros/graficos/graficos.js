'use strict';
// The four plots.

{
  const {t, numero, cores, letras, unidade} = vorplex;
  const {grandeza, peso, peneiras} = vorplex.ajustes;

  Chart.defaults.font.family = 'system-ui, "Segoe UI", Roboto, "DejaVu Sans", sans-serif';
  Chart.defaults.color = '#3e4c59';
  Chart.defaults.animation = false;
  Chart.defaults.maintainAspectRatio = false;
  Chart.defaults.devicePixelRatio = Math.max(2, window.devicePixelRatio);
  Chart.register(vorplex.pluginBarras, vorplex.pluginLinhas, vorplex.pluginFundo);

  // Axes and classes are those of all grains, so that a filter does not move them.
  const limites = vorplex.classesDeTamanho(vorplex.graos, peneiras);
  const folga = Math.max(1.02, Math.sqrt(2.5 / (limites.at(-1) / limites[0])));
  const eixo = {min: limites[0] / folga, max: limites.at(-1) * folga};
  const alongamentos = vorplex.classesDeAlongamento(vorplex.graos);
  const passoRosa = vorplex.passoDaRosa(vorplex.graos);
  const presentes = letras.filter((letra) => vorplex.graos.some((g) => g.letra === letra));

  const eixoTamanho = () => ({
    type: 'logarithmic', ...eixo, offset: false, stacked: true,
    title: {display: true, text: t('eixoTamanho', t(grandeza), unidade)},
    afterBuildTicks: (escala) => {
      escala.ticks = vorplex.marcasLogaritmicas(escala.min, escala.max).map((value) => ({value}));
    },
    ticks: {callback: (valor) => numero(valor), maxRotation: 0, autoSkipPadding: 8},
    grid: {color: '#eef1f4', offset: false},
  });
  const eixoY = (texto, mais = {}) => ({
    beginAtZero: true, title: {display: true, text: texto}, grid: {color: '#e4e7eb'},
    ticks: {callback: (valor) => numero(valor)}, ...mais,
  });
  const legenda = {position: 'bottom', onClick: null,
                   labels: {boxWidth: 12, boxHeight: 12, padding: 12}};

  // Shares in percent of stacked bars, one data set a shape.
  const pilhas = (graos, classes, valor, pesoDe) => {
    const total = graos.reduce((s, g) => s + pesoDe(g), 0) || 1;
    const somas = Object.fromEntries(presentes.map((l) => [l, Array(classes.length - 1).fill(0)]));
    for (const g of graos) somas[g.letra][vorplex.classe(valor(g), classes)] += pesoDe(g);
    return presentes.map((letra) => ({
      label: t(letra), backgroundColor: cores[letra], minBarLength: 0,
      data: somas[letra].map((y, k) => ({x: (classes[k] + classes[k + 1]) / 2, y: 100 * y / total})),
    }));
  };
  const barras = (classes, x, y, tituloDaClasse) => ({
    type: 'bar',
    data: {datasets: []},
    options: {
      layout: {padding: {top: 18}},
      interaction: {mode: 'index', intersect: true},
      scales: {x, y},
      plugins: {
        barras: {limites: classes}, legend: legenda,
        tooltip: {filter: (item) => item.parsed.y > 0, callbacks: {
          title: ([item]) => item && tituloDaClasse(item.dataIndex),
          label: (item) => `${item.dataset.label}: ${numero(item.parsed.y)} %`,
        }},
      },
    },
  });

  const faixa = (classes, k) => `${numero(classes[k])} – ${numero(classes[k + 1])}`;
  const histograma = barras(limites, eixoTamanho(), eixoY(t('eixoPeso', t(peso)), {stacked: true}),
                            (k) => `${faixa(limites, k)} ${unidade}`);
  const alongamento = barras(
    alongamentos,
    {type: 'linear', min: 1, max: alongamentos.at(-1), offset: false, stacked: true,
     title: {display: true, text: t('eixoAlong')}, ticks: {callback: (valor) => numero(valor)},
     grid: {color: '#eef1f4', offset: false}},
    eixoY(t('eixoGraos'), {stacked: true}),
    (k) => alongamentos[k] >= 10 ? '≥ 10' : faixa(alongamentos, k));

  const cumulativa = {
    type: 'line',
    data: {datasets: []},
    options: {
      layout: {padding: {top: 18}},
      interaction: {mode: 'nearest', axis: 'x', intersect: false},
      scales: {x: {...eixoTamanho(), stacked: false}, y: eixoY(t('eixoCurva', t(peso)), {max: 100})},
      plugins: {
        legend: {...legenda, display: peneiras.length > 0},
        tooltip: {callbacks: {
          title: ([item]) => item && `${numero(item.parsed.x)} ${unidade}`,
          label: (item) => `${item.dataset.label}: ${numero(item.parsed.y)} %`,
        }},
      },
    },
  };

  // A full turn of sectors, each around its direction, the first upwards (270 degrees); the second
  // half repeats the first. Squares have no longer axis and circles no axis at all.
  const setores = 360 / passoRosa;
  const rosa = {
    type: 'polarArea',
    data: {labels: Array.from({length: setores}, (_, k) => (270 + k * passoRosa) % 360), datasets: []},
    options: {
      layout: {padding: 4},
      scales: {r: {
        beginAtZero: true, startAngle: -passoRosa / 2, grid: {color: '#d9dee3'},
        ticks: {callback: (valor) => `${numero(valor)} %`, maxTicksLimit: 4, z: 1,
                backdropColor: 'rgba(255,255,255,0.75)'},
        pointLabels: {display: true, centerPointLabels: true, font: {size: 11},
                      callback: (grau) => grau % (30 % passoRosa === 0 ? 30 : 90) ? '' : `${grau}°`},
      }},
      plugins: {
        legend: {display: false},
        tooltip: {callbacks: {
          title: () => '', label: (item) => `${item.label}°: ${numero(item.raw)} %`}},
      },
    },
  };

  const novosGraficos = {histograma, curva: cumulativa, rosa, alongamento};

  const novaFigura = (nome, config) => {
    const canvas = vorplex.elemento('canvas', {role: 'img', id: `grafico-${nome}`});
    const botao = vorplex.elemento('button', {type: 'button', class: 'discreto',
                                              'aria-label': `${t('baixaPng')}: ${t(nome)}`},
                                   t('baixaPng'));
    const figura = vorplex.elemento('figure', {class: 'grafico'},
      vorplex.elemento('figcaption', {}, vorplex.elemento('h3', {}, t(nome)), botao),
      vorplex.elemento('div', {class: 'tela'}, canvas));
    if (nome === 'rosa') figura.append(vorplex.elemento('p', {class: 'dica'}, t('dicaRosa')));
    document.getElementById('graficos').append(figura);
    const chart = new Chart(canvas, config);
    botao.addEventListener('click', () => baixaFigura(nome, chart));
    return chart;
  };

  // The plot as a picture with its title and filter above it.
  vorplex.figuraEmCanvas = (nome, chart) => {
    const {canvas} = chart;
    const pixel = chart.currentDevicePixelRatio;
    const alto = 48 * pixel;
    const saida = vorplex.elemento('canvas', {width: canvas.width, height: canvas.height + alto});
    const ctx = saida.getContext('2d');
    ctx.fillStyle = '#fff';
    ctx.fillRect(0, 0, saida.width, saida.height);
    ctx.fillStyle = '#1f2933';
    ctx.font = `600 ${16 * pixel}px ${Chart.defaults.font.family}`;
    ctx.fillText(`${vorplex.ajustes.titulo} – ${t(nome)}`, 10 * pixel, 20 * pixel,
                 saida.width - 20 * pixel);
    ctx.font = `${11 * pixel}px ${Chart.defaults.font.family}`;
    ctx.fillText(vorplex.filtroDito(), 10 * pixel, 38 * pixel, saida.width - 20 * pixel);
    ctx.drawImage(canvas, 0, alto);
    return saida;
  };
  const baixaFigura = (nome, chart) => vorplex.figuraEmCanvas(nome, chart)
    .toBlob((blob) => vorplex.baixa(`${nome}.png`, blob), 'image/png');

  vorplex.graficos = Object.fromEntries(
    Object.entries(novosGraficos).map(([nome, config]) => [nome, novaFigura(nome, config)]));

  // On paper a plot takes half the width, with letters of their full size.
  window.addEventListener('beforeprint', () => {
    for (const chart of Object.values(vorplex.graficos)) chart.resize(330, 240);
  });
  window.addEventListener('afterprint', () => {
    for (const chart of Object.values(vorplex.graficos)) chart.resize();
  });

  // The points of the curve, thinned to what a screen can show.
  const pontosDaCurva = ({graos, acumulada}) => {
    const passo = Math.max(1, Math.floor(graos.length / 1000));
    return graos.map((g, i) => ({x: g.tamanho, y: 100 * acumulada[i]}))
      .filter((_, i) => i % passo === 0 || i === graos.length - 1);
  };

  const dadosDaCurva = (curva, classes) => [
    {label: t('curva'), data: pontosDaCurva(curva), borderColor: '#0b4f8a', borderWidth: 2,
     pointRadius: curva.graos.length > 1 ? 0 : 4, backgroundColor: '#0b4f8a', pointHitRadius: 8},
    ...(peneiras.length === 0 ? [] : [{
      label: t('peneiras'), showLine: false, pointStyle: 'triangle', pointRadius: 5,
      backgroundColor: '#d55e00', borderColor: '#d55e00',
      data: classes.slice(1).filter((c) => c.passante !== null)
        .map((c) => ({x: c.de, y: 100 * c.passante})),
    }]),
  ];

  const dadosDaRosa = (graos) => {
    const longos = graos.filter((g) => (g.letra === 'r' || g.letra === 'e') && g.d1 !== g.d2);
    const partes = Array(setores / 2).fill(0);
    for (const g of longos) {
      const direcao = g.d1 > g.d2 ? g.ang : g.ang + 90;
      const k = Math.round((direcao - 270) / passoRosa) % partes.length;
      partes[(k + partes.length) % partes.length] += 100 / longos.length;
    }
    return [{data: [...partes, ...partes], backgroundColor: 'rgba(11,79,138,0.55)',
             borderColor: '#0b4f8a', borderWidth: 1}];
  };

  // Draws what the selected grains say.
  vorplex.mostraGraficos = ({graos, curva, distribuicao, classes}) => {
    const {d} = distribuicao;
    const linhas = graos.length === 0 ? [] :
      [10, 50, 90].map((p) => [d[p], `D${p} ${vorplex.medida(d[p])}`]);
    const {graficos} = vorplex;
    graficos.histograma.data.datasets = pilhas(graos, limites, (g) => g.tamanho, (g) => g.peso);
    graficos.curva.data.datasets = dadosDaCurva(curva, classes);
    graficos.rosa.data.datasets = dadosDaRosa(graos);
    graficos.alongamento.data.datasets =
      pilhas(graos, alongamentos, (g) => g.alongamento, () => 1);
    for (const nome of ['histograma', 'curva']) {
      graficos[nome].options.plugins.linhas = {linhas, peneiras: nome === 'curva' ? peneiras : []};
    }
    const dito = linhas.length === 0 ? t('semGraos') :
      linhas.map(([, rotulo]) => `${rotulo} ${unidade}`).join(', ');
    for (const [nome, chart] of Object.entries(graficos)) {
      chart.update('none');
      chart.canvas.setAttribute('aria-label', t('graficoDito', t(nome), dito));
    }
  };
}
