'use strict';
// The axes of the plots. Those of sizes hold all grains, so that a filter does not move them.

{
  const {t, numero, unidade} = vorplex;

  // Where the axis of sizes begins and ends, and the edges of the classes on it.
  vorplex.prepareTamanhos = () => {
    const {peneiras} = vorplex.ajustes;
    const {escolhas} = vorplex;
    const proprias = vorplex.classesDeTamanho(vorplex.graos, []);
    const dasPeneiras = vorplex.classesDeTamanho(vorplex.graos, peneiras);
    const menor = Math.min(proprias[0], dasPeneiras[0]);
    const maior = Math.max(proprias.at(-1), dasPeneiras.at(-1));
    const folga = Math.max(1.02, Math.sqrt(2.5 / (maior / menor)));
    const peneirado = escolhas.classes === 'peneiras' && peneiras.length > 0;
    return {limites: peneirado ? dasPeneiras : proprias, peneirado,
            eixo: {min: menor / folga, max: maior * folga}};
  };

  const marcas = (tema) => ({color: tema.fraca, callback: (valor) => numero(valor)});

  vorplex.eixoTamanho = ({min, max}) => ({
    type: 'logarithmic', min, max, offset: false, stacked: true,
    title: {display: true, color: vorplex.tema.fraca,
            text: t('eixoTamanho', t(vorplex.escolhas.grandeza), unidade)},
    afterBuildTicks: (escala) => {
      escala.ticks = vorplex.marcasLogaritmicas(escala.min, escala.max).map((value) => ({value}));
    },
    ticks: {...marcas(vorplex.tema), maxRotation: 0, autoSkipPadding: 8},
    grid: {color: vorplex.tema.grade, offset: false},
  });

  // The same sizes in phi, above the plot; where they span less than three of them, in parts.
  vorplex.eixoPhi = ({min, max}) => {
    const partes = Math.log2(max / min) < 1.5 ? 10 : Math.log2(max / min) < 3 ? 4 : 1;
    const [de, ate] = [Math.ceil(vorplex.phi(max) * partes), Math.floor(vorplex.phi(min) * partes)];
    const lista = Array.from({length: Math.max(ate - de + 1, 0)}, (_, k) => (de + k) / partes);
    return {
      type: 'logarithmic', position: 'top', min, max, offset: false, display: vorplex.calibrada,
      title: {display: true, color: vorplex.tema.fraca, text: 'φ', padding: 0},
      afterBuildTicks: (escala) => {
        escala.ticks = lista.map((phi) => ({value: vorplex.dePhi(phi)})).reverse();
      },
      ticks: {...marcas(vorplex.tema), callback: (valor) => numero(Math.round(vorplex.phi(valor) * 100) / 100 + 0),
              maxRotation: 0, autoSkipPadding: 8},
      grid: {drawOnChartArea: false, color: vorplex.tema.grade},
    };
  };

  vorplex.eixoY = (texto, mais = {}) => ({
    beginAtZero: true, title: {display: true, text: texto, color: vorplex.tema.fraca},
    grid: {color: vorplex.tema.grade}, ticks: marcas(vorplex.tema), ...mais,
  });

  vorplex.legenda = () => ({
    position: 'bottom', onClick: null,
    labels: {boxWidth: 12, boxHeight: 12, padding: 7, font: {size: 11}, color: vorplex.tema.tinta},
  });
}
