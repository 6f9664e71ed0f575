'use strict';
// The colours of the families, in light and in the dark, and a pattern for each, so that neither
// colour vision nor a printer's grey decides who can read a plot.

// Apart in lightness as well, for every kind of colour vision and in grey (tests/page/paleta).
vorplex.paletas = {
  claro: {c: '#12386f', q: '#98330e', r: '#0a8060', e: '#c878b1'},
  escuro: {c: '#6594de', q: '#b8542a', r: '#55cc9c', e: '#f9d0ea'},
};

// Outlines on photographs keep the colours of the light, above their white rim.
vorplex.cores = vorplex.paletas.claro;

{
  const tintas = {
    claro: {tinta: '#1f2933', fraca: '#3e4c59', grade: '#e4e7eb', papel: '#ffffff', marca: '#0b4f8a',
            veu: 'rgba(255,255,255,0.85)', risco: 'rgba(255,255,255,0.6)', sinal: '#98330e'},
    escuro: {tinta: '#e6ebf0', fraca: '#b4c0cb', grade: '#33404d', papel: '#1b232c', marca: '#7db4ea',
             veu: 'rgba(27,35,44,0.85)', risco: 'rgba(0,0,0,0.5)', sinal: '#f0a27e'},
  };
  const LADO = 8;  // px of a tile

  // What is drawn over the plain colour of a family, within a tile.
  const riscos = {
    c: () => {},
    q: (ctx) => {
      ctx.moveTo(-1, 1);
      ctx.lineTo(1, -1);
      ctx.moveTo(0, LADO);
      ctx.lineTo(LADO, 0);
      ctx.moveTo(LADO - 1, LADO + 1);
      ctx.lineTo(LADO + 1, LADO - 1);
    },
    r: (ctx) => {
      ctx.moveTo(0, LADO / 2);
      ctx.lineTo(LADO, LADO / 2);
    },
    e: (ctx) => {
      for (const x of [2, 6]) {
        ctx.moveTo(x + 1, x);
        ctx.arc(x, x, 1, 0, 2 * Math.PI);
      }
    },
  };

  const azulejo = (letra, cor, risco) => {
    const tela = vorplex.elemento('canvas', {width: LADO, height: LADO});
    const ctx = tela.getContext('2d');
    ctx.fillStyle = cor;
    ctx.fillRect(0, 0, LADO, LADO);
    ctx.beginPath();
    riscos[letra](ctx);
    ctx.strokeStyle = ctx.fillStyle = risco;
    ctx.lineWidth = 1.6;
    if (letra === 'e') ctx.fill(); else ctx.stroke();
    return tela;
  };

  const novoTema = (nome) => {
    const azulejos = Object.fromEntries(vorplex.letras.map((letra) =>
      [letra, azulejo(letra, vorplex.paletas[nome][letra], tintas[nome].risco)]));
    const ctx = vorplex.elemento('canvas').getContext('2d');
    return {
      ...tintas[nome], nome, cores: vorplex.paletas[nome], azulejos,
      padroes: Object.fromEntries(vorplex.letras.map((letra) =>
        [letra, ctx.createPattern(azulejos[letra], 'repeat')])),
    };
  };

  const escuro = window.matchMedia('(prefers-color-scheme: dark)');
  const temas = {claro: novoTema('claro'), escuro: novoTema('escuro')};
  vorplex.tema = temas[escuro.matches ? 'escuro' : 'claro'];

  // Calls those who draw when light or dark comes; paper is always light.
  const ouvintes = [];
  vorplex.quandoMudaOTema = (f) => ouvintes.push(f);
  const poeTema = (nome) => {
    if (vorplex.tema === temas[nome]) return;
    vorplex.tema = temas[nome];
    for (const f of ouvintes) f();
  };
  const segueATela = () => poeTema(escuro.matches ? 'escuro' : 'claro');
  escuro.addEventListener('change', segueATela);
  window.addEventListener('beforeprint', () => poeTema('claro'));
  window.addEventListener('afterprint', segueATela);
}
