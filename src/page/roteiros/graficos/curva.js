'use strict';
// The cumulative curve, with what passes each sieve.

{
  const {t, numero, unidade} = vorplex;

  // The points of a curve, thinned to what a screen can show. Before its first grain and after its
  // last a percentile is that grain's size, so the curve rises there from 0 and to 100 percent, and
  // from there it goes on to the ends of the axis.
  vorplex.pontosDaCurva = ({graos, acumulada}, {min, max}) => {
    if (graos.length === 0) return [];
    const passo = Math.max(1, Math.floor(graos.length / 1000));
    const ponto = (i) => ({x: graos[i].tamanho, y: 100 * acumulada[i]});
    const pontos = Array.from({length: Math.ceil(graos.length / passo)}, (_, k) => ponto(k * passo));
    pontos.push(ponto(graos.length - 1));
    const [menor, maior] = [graos[0].tamanho, graos.at(-1).tamanho];
    return [{x: min, y: 0}, {x: menor, y: 0}, ...pontos, {x: maior, y: 100}, {x: max, y: 100}];
  };

  vorplex.configDaCurva = (eixo, mostraLegenda) => ({
    type: 'line',
    data: {datasets: []},
    options: {
      interaction: {mode: 'nearest', axis: 'x', intersect: false},
      scales: {x: {...vorplex.eixoTamanho(eixo), stacked: false}, phi: vorplex.eixoPhi(eixo),
               y: vorplex.eixoY(t('eixoCurva', t(vorplex.escolhas.peso)), {max: 100})},
      plugins: {
        legend: {...vorplex.legenda(), display: mostraLegenda},
        tooltip: {callbacks: {
          title: ([item]) => item && `${numero(item.parsed.x)} ${unidade}`,
          label: (item) => `${item.dataset.label}: ${numero(item.parsed.y)} %`,
        }},
      },
    },
  });

  const triangulos = (classes, {min, max}) => ({
    label: t('peneiras'), showLine: false, pointStyle: 'triangle', pointRadius: 5, clip: 8,
    backgroundColor: vorplex.tema.sinal, borderColor: vorplex.tema.sinal,
    data: classes.slice(1).filter((c) => c.passante !== null && c.de >= min && c.de <= max)
      .map((c) => ({x: c.de, y: 100 * c.passante})),
  });

  vorplex.novaCurva = ({eixo}) => {
    const {peneiras} = vorplex.ajustes;
    const config = vorplex.configDaCurva(eixo, peneiras.length > 0);
    const mostra = ({curva, classes}) => {
      const {marca} = vorplex.tema;
      config.data.datasets = [
        {label: t('curva'), data: vorplex.pontosDaCurva(curva, eixo), borderColor: marca, borderWidth: 2,
         pointRadius: 0, backgroundColor: marca, pointHitRadius: 8, clip: 2},
        ...(peneiras.length === 0 ? [] : [triangulos(classes, eixo)]),
      ];
    };
    return {config, mostra};
  };
}
