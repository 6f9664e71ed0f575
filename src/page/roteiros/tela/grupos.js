'use strict';
// Groups of photographs: their curves over each other, their percentiles side by side, and tests.

{
  const {t, elemento, medida, numero, inteiro, letras, unidade} = vorplex;
  const nomes = [...new Set(vorplex.fotos.map((foto) => foto.grupo).filter(Boolean))];
  const TRACOS = [[], [8, 4], [2, 3], [10, 3, 2, 3], [14, 4], [4, 4]];
  const COMPARADOS = 8;  // groups, two by two
  const porId = (id) => document.getElementById(id);

  const deCada = (graos) => nomes.map((nome) => {
    const fotos = vorplex.fotos.filter((foto) => foto.grupo === nome);
    const seus = graos.filter((g) => g.foto.grupo === nome);
    const curva = vorplex.curva(seus);
    return {nome, fotos, graos: seus, curva, distribuicao: vorplex.distribui(curva), classes: []};
  });

  let chart = null;
  let eixo = null;
  const refaz = () => {
    chart?.destroy();
    ({eixo} = vorplex.prepareTamanhos());
    chart = new Chart(porId('grafico-grupos'), vorplex.configDaCurva(eixo, true));
  };
  const mostraCurvas = (grupos) => {
    const {cores} = vorplex.tema;
    chart.data.datasets = grupos.map(({nome, curva}, k) => ({
      label: nome, data: vorplex.pontosDaCurva(curva, eixo), pointRadius: 0, pointHitRadius: 8, borderWidth: 2,
      borderColor: cores[letras[k % 4]], backgroundColor: cores[letras[k % 4]], borderDash: TRACOS[k % 6], clip: 2,
    }));
    chart.update('none');
    chart.canvas.setAttribute('aria-label', t('graficoDito', t('grupos'), nomes.join(', ')));
  };

  const linha = (nome, ...valores) => elemento('tr', {}, elemento('th', {scope: 'row'}, elemento('bdi', {}, nome)),
    ...valores.map((v) => elemento('td', {class: 'n'}, ...[v].flat())));
  const cabeca = (...titulos) => elemento('thead', {}, elemento('tr', {}, ...titulos.map((titulo, k) =>
    elemento('th', {class: `${k > 0 ? 'n' : ''} ${titulo === 'p' ? 'simbolo' : ''}`, scope: 'col'}, titulo))));

  // A number, below it its 95 % interval once that is known.
  const comIntervalo = (x, limites) => limites ? [medida(x), elemento('br'),
    elemento('small', {}, `${numero(limites[0], 3)} – ${numero(limites[1], 3)}`)] : medida(x);
  const mostraTabela = (grupos, intervalos) => porId('tabela-grupos').replaceChildren(
    cabeca(t('grupo'), t('fotosCurto'), t('graos'), ...[10, 50, 90].map((p) => `D${p} (${unidade})`), `${t('media')} (${unidade})`),
    elemento('tbody', {}, ...grupos.map(({nome, fotos, graos, distribuicao: {d, media}}, k) => {
      const i = intervalos?.[k];
      return linha(nome, inteiro(fotos.length), inteiro(graos.length),
                   ...[10, 50, 90].map((p) => comIntervalo(d[p], i?.d[p])), comIntervalo(media, i?.media));
    })));

  const testa = (grupos) => {
    const porFoto = grupos.slice(0, COMPARADOS).map(({fotos, graos}) =>
      fotos.map((foto) => graos.filter((g) => g.foto === foto)));
    const pares = porFoto.flatMap((a, i) => porFoto.slice(i + 1).map((b, k) =>
      ({nome: `${nomes[i]} – ${nomes[i + 1 + k]}`, ...vorplex.compara(a, b)})));
    porId('tabela-testes').replaceChildren(cabeca(t('par'), t('distancia'), 'p', t('distribuicoes')),
      elemento('tbody', {}, ...pares.map(({nome, d, p, modos}) =>
        linha(nome, numero(d, 3), p === null ? t('poucasFotos') : numero(p, 3), inteiro(modos)))));
    vorplex.testes = pares;
  };

  // What takes time waits until the filter rests.
  const demorado = vorplex.depoisDe(300, (grupos) => {
    if (vorplex.intervalos) mostraTabela(grupos, grupos.map((g) => vorplex.intervalos(g, [], 200)));
    testa(grupos);
  });

  vorplex.mostraGrupos = (graos) => {
    if (nomes.length < 2) return;
    const grupos = deCada(graos);
    vorplex.grupos = grupos;
    mostraCurvas(grupos);
    mostraTabela(grupos, null);
    demorado(grupos);
  };

  porId('bloco-grupos').hidden = nomes.length < 2;
  if (nomes.length >= 2) {
    refaz();
    vorplex.quandoRefazGraficos = refaz;
    vorplex.quandoMudaOTema(() => {
      refaz();
      if (vorplex.grupos) mostraCurvas(vorplex.grupos);
    });
  }
}
