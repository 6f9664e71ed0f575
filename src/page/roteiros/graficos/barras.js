'use strict';
// The plots of bars: sizes and aspect ratios, a pattern for each family.

{
  const {t, numero, unidade} = vorplex;

  const barras = (classes, x, y, tituloDaClasse, mais = {}) => ({
    type: 'bar',
    data: {datasets: []},
    options: {
      interaction: {mode: 'index', intersect: true},
      onHover: (evento, barras) => {
        evento.native.target.style.cursor = barras.length > 0 ? 'pointer' : '';
      },
      scales: {x, y, ...mais},
      plugins: {
        barras: {limites: classes}, legend: vorplex.legenda(),
        tooltip: {filter: (item) => item.parsed.y > 0, callbacks: {
          title: ([item]) => item && tituloDaClasse(item.dataIndex),
          label: (item) => `${item.dataset.label}: ${numero(item.parsed.y)} %`,
        }},
      },
    },
  });

  // Bars of all families, one data set each. `valor` and `folga` say in which class a grain lies;
  // shares are in percent, divided by the width of their class where `larguras` are given.
  const pilhas = (graos, {classes, valor, folga, pesoDe, larguras, presentes}) => {
    const total = graos.reduce((s, g) => s + pesoDe(g), 0) || 1;
    const somas = Object.fromEntries(presentes.map((l) => [l, Array(classes.length - 1).fill(0)]));
    for (const g of graos) somas[g.letra][vorplex.classe(valor(g), classes, folga)] += pesoDe(g);
    const {padroes, papel} = vorplex.tema;
    return presentes.map((letra) => ({
      label: t(letra), backgroundColor: padroes[letra], borderColor: papel, borderWidth: 0.5,
      data: somas[letra].map((y, k) =>
        ({x: (classes[k] + classes[k + 1]) / 2, y: 100 * y / total / (larguras?.[k] ?? 1)})),
    }));
  };

  const faixa = (classes, k) => `${numero(classes[k])} – ${numero(classes[k + 1])}`;

  // A click on a bar shows its grains.
  const aoClicar = (plano, titulo) => (_, barras) => {
    if (barras.length === 0) return;
    const {index: k} = barras[0];
    vorplex.mostraGaleria(titulo(k), (g) =>
      vorplex.classe(plano.valor(g), plano.classes, plano.folga) === k);
  };

  const comClique = (plano, config, titulo) => {
    config.options.onClick = aoClicar(plano, titulo);
    return {config, mostra: ({graos}) => { config.data.datasets = pilhas(graos, plano); }};
  };

  // Sizes: in shares where classes are equally wide on the axis; of sieves, in shares an octave, so
  // that a bar's surface is its share.
  vorplex.novoHistograma = ({limites, peneirado, eixo}, presentes) => {
    const larguras = peneirado ? limites.slice(1).map((ate, k) => Math.log2(ate / limites[k])) : null;
    const plano = {classes: limites, valor: (g) => g.tamanho, pesoDe: (g) => g.peso, larguras, presentes};
    const titulo = (k) => `${faixa(limites, k)} ${unidade}`;
    const eixoY = vorplex.eixoY(t(peneirado ? 'eixoDensidade' : 'eixoPeso', t(vorplex.escolhas.peso)),
                                {stacked: true, grace: '12%'});
    return comClique(plano, barras(limites, vorplex.eixoTamanho(eixo), eixoY, titulo,
                                   {phi: vorplex.eixoPhi(eixo)}), titulo);
  };

  vorplex.novoAlongamento = (presentes) => {
    const classes = vorplex.classesDeAlongamento(vorplex.graos);
    const plano = {classes, valor: (g) => g.alongamento, folga: vorplex.folgaDoAlongamento,
                   pesoDe: () => 1, presentes};
    const titulo = (k) => classes[k] >= 10 ? '≥ 10' : faixa(classes, k);
    const eixoX = {
      type: 'linear', min: 1, max: classes.at(-1), offset: false, stacked: true,
      title: {display: true, text: t('eixoAlong'), color: vorplex.tema.fraca},
      ticks: {color: vorplex.tema.fraca, callback: (valor) => numero(valor)},
      grid: {color: vorplex.tema.grade, offset: false},
    };
    return comClique(plano, barras(classes, eixoX, vorplex.eixoY(t('eixoGraos'), {stacked: true}), titulo),
                     (k) => `${t('alongamento')} ${titulo(k)}`);
  };
}
