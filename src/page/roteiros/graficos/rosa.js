'use strict';
// The rose of directions.

// A full turn of sectors, each around its direction, the first upwards (270 degrees); the second
// half repeats the first. Squares have no longer axis and circles no axis at all.
vorplex.novaRosa = () => {
  const {numero, tema} = vorplex;
  const passo = vorplex.passoDaRosa(vorplex.graos);
  const setores = 360 / passo;
  const config = {
    type: 'polarArea',
    data: {labels: Array.from({length: setores}, (_, k) => (270 + k * passo) % 360), datasets: []},
    options: {
      layout: {padding: 4},
      scales: {r: {
        beginAtZero: true, startAngle: -passo / 2, grid: {color: tema.grade},
        ticks: {callback: (valor) => `${numero(valor)} %`, maxTicksLimit: 4, z: 1,
                color: tema.fraca, backdropColor: tema.veu},
        pointLabels: {display: true, centerPointLabels: true, font: {size: 11}, color: tema.fraca,
                      callback: (grau) => grau % (30 % passo === 0 ? 30 : 90) ? '' : `${grau}°`},
      }},
      plugins: {
        legend: {display: false},
        tooltip: {callbacks: {
          title: () => '', label: (item) => `${item.label}°: ${numero(item.raw)} %`}},
      },
    },
  };
  const mostra = ({graos}) => {
    const longos = graos.filter((g) => (g.letra === 'r' || g.letra === 'e') && g.d1 !== g.d2);
    const partes = Array(setores / 2).fill(0);
    for (const g of longos) {
      const direcao = g.d1 > g.d2 ? g.ang : g.ang + 90;
      const k = Math.round((direcao - 270) / passo) % partes.length;
      partes[(k + partes.length) % partes.length] += 100 / longos.length;
    }
    config.data.datasets = [{data: [...partes, ...partes], backgroundColor: `${tema.marca}99`,
                             borderColor: tema.marca, borderWidth: 1}];
  };
  return {config, mostra};
};
