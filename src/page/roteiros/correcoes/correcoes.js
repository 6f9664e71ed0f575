'use strict';
// Corrections by hand: what was rejected, brought back and drawn, in order; kept in the browser until
// it is saved, and undone one by one.

{
  const {ajustes, fotos} = vorplex;
  const MESMO = 0.5;  // share of the union at which two shapes are the same grain, as in the program
  const feitas = [];  // {foto, gesto, grao}

  // Only fitted grains are corrected, in photographs that can be known again.
  vorplex.corrigivel = Boolean(ajustes.apurado) && fotos.some((foto) => foto.soma);

  // The grains of a photograph: those found, less those rejected, and those added.
  for (const foto of fotos) {
    foto.vivos = foto.graos;
    foto.candidatos = (foto.candidatos ?? []).map((valores) =>
      Object.assign(vorplex.novoGrao(valores, foto), {candidato: true}));
  }
  vorplex.daFoto = (foto) => foto.vivos;

  const poe = (vivos, grao) => [...vivos.filter((g) => vorplex.semelhanca(g, grao) < MESMO), grao];
  const aplica = () => {
    for (const foto of fotos) foto.vivos = foto.graos;
    for (const {foto, gesto, grao} of feitas) {
      foto.vivos = gesto === 'rejeita' ? foto.vivos.filter((g) => g !== grao) : poe(foto.vivos, grao);
    }
    vorplex.graos = vorplex.ordena(fotos.flatMap((foto) => foto.vivos));
  };

  // The candidates that a photograph still has.
  vorplex.candidatosDa = (foto) => foto.candidatos.filter((c) =>
    !feitas.some(({gesto, de}) => gesto === 'recupera' && de === c));

  const novoIndice = (foto) => foto.graos.length + foto.candidatos.length +
    feitas.reduce((s, f) => s + (f.foto === foto && f.gesto !== 'rejeita'), 0);
  const manual = (figura, foto) =>
    Object.assign(vorplex.graoDesenhado(figura, foto, novoIndice(foto)), {manual: true});

  const emRegistro = ({gesto, grao: {letra, li, ci, d1, d2, ang}}) =>
    ({gesto, forma: letra, linha: li, coluna: ci, d1, d2, angulo: ang});

  // What was made here is kept under a name that other pages do not have.
  const chave = `vorplex-correcoes ${fotos.map((f) => `${f.soma}:${f.graos.length}`).join(' ')}`;
  const guarda = () => {
    try {
      if (feitas.length === 0) localStorage.removeItem(chave);
      else localStorage.setItem(chave, JSON.stringify(feitas.map((f) => ({foto: f.foto.k, ...emRegistro(f)}))));
    } catch {
      // A browser that keeps nothing for pages from disk.
    }
  };
  const guardadas = () => {
    try {
      return JSON.parse(localStorage.getItem(chave)) ?? [];
    } catch {
      return [];
    }
  };

  const depoisDeCorrigir = () => {
    aplica();
    guarda();
    vorplex.mostraCorrecoes(feitas);
    vorplex.depois();
  };

  vorplex.rejeita = (grao) => {
    feitas.push({foto: grao.foto, gesto: 'rejeita', grao});
    depoisDeCorrigir();
  };
  vorplex.recupera = (candidato) => {
    const grao = manual(candidato, candidato.foto);
    feitas.push({foto: candidato.foto, gesto: 'recupera', grao, de: candidato});
    depoisDeCorrigir();
    return grao;
  };
  vorplex.desenha = (figura, foto) => {
    const grao = manual(figura, foto);
    feitas.push({foto, gesto: 'desenha', grao});
    depoisDeCorrigir();
    return grao;
  };
  vorplex.desfaz = () => {
    feitas.pop();
    depoisDeCorrigir();
  };
  vorplex.descarta = () => {
    feitas.length = 0;
    depoisDeCorrigir();
  };

  // The file for --correcoes: those that this run has applied, then those made here.
  vorplex.textoDasCorrecoes = () => {
    const todas = fotos.map((foto) => ({
      soma: foto.soma, nome: foto.nome,
      correcoes: [...(foto.correcoes ?? []), ...feitas.filter((f) => f.foto === foto).map(emRegistro)],
    })).filter(({soma, correcoes}) => soma && correcoes.length > 0);
    const unicas = todas.filter(({soma}, i) => todas.findIndex((f) => f.soma === soma) === i);
    const linhas = unicas.map(({soma, nome, correcoes}) =>
      `{"soma": ${JSON.stringify(soma)}, "nome": ${JSON.stringify(nome)}, "correcoes": [\n  ` +
      `${correcoes.map((c) => JSON.stringify(c)).join(',\n  ')}]}`);
    return `{"formato": "vorplex correcoes 1", "fotos": [\n${linhas.join(',\n')}]}\n`;
  };

  // Those of an earlier visit: the shape tells which grain was meant.
  const igual = (g, c) => g.letra === c.forma && g.li === c.linha && g.ci === c.coluna && g.d1 === c.d1;
  vorplex.retomaCorrecoes = () => {
    for (const c of vorplex.corrigivel ? guardadas() : []) {
      const foto = fotos[c.foto];
      if (!foto) continue;
      const figura = {letra: c.forma, li: c.linha, ci: c.coluna, d1: c.d1, d2: c.d2, ang: c.angulo};
      if (c.gesto === 'rejeita') {
        const grao = foto.vivos.find((g) => igual(g, c));
        if (grao) feitas.push({foto, gesto: c.gesto, grao});
      } else {
        const de = foto.candidatos.find((g) => igual(g, c));
        feitas.push({foto, gesto: c.gesto, grao: manual(figura, foto), de});
      }
      aplica();
    }
    vorplex.mostraCorrecoes(feitas);
  };

  // Once saved, they are no longer kept here.
  vorplex.esqueceGuardadas = () => {
    try {
      localStorage.removeItem(chave);
    } catch {
      // As above.
    }
  };
}
