'use strict';
// The filter, and what follows it: counts, summary and tables.

{
  const {t, numero, medida, inteiro, porcento, elemento, cores, letras, ajustes, unidade} = vorplex;
  const {escala, peneiras} = ajustes;
  const porId = (id) => document.getElementById(id);
  const calibrada = escala.unidade !== 'px';
  const cursor = porId('corr');
  const exata = porId('corr-exata');

  // What the slider limits: of fitted grains their support or, if the reader says so, correlation.
  const criterios = ajustes.apurado ? ['apoio', 'correl'] : ['correl'];
  const rotulos = {apoio: t('minApoio'), correl: t('minCorrel')};
  const inicio = {apoio: 0, correl: ajustes.minCorr};
  const filtro = {criterio: criterios[0], minimo: {...inicio}, familias: new Set(letras)};
  const minimo = () => filtro.minimo[filtro.criterio];
  const alcanca = (g) => g[filtro.criterio] >= minimo();
  vorplex.passa = (g) => alcanca(g) && filtro.familias.has(g.letra);

  vorplex.filtroDito = () => t('filtroDito', t(filtro.criterio).toLowerCase(), numero(minimo()),
    letras.filter((l) => filtro.familias.has(l)).map((l) => t(l).toLowerCase()).join(', ') ||
    t('nenhuma'));

  const caixas = letras.map((letra) => {
    const caixa = elemento('input', {type: 'checkbox', role: 'switch', checked: '', value: letra});
    const quantos = elemento('span', {class: 'quantos'});
    const rotulo = elemento('label', {}, caixa,
      elemento('span', {class: 'amostra', style: `background:${cores[letra]}`}), t(letra), ' ', quantos);
    caixa.addEventListener('change', () => {
      if (caixa.checked) filtro.familias.add(letra); else filtro.familias.delete(letra);
      depois();
    });
    porId('familias').append(rotulo);
    return {letra, caixa, quantos};
  });

  // Below the grains there are, and to above the best of them.
  const preparaCursor = () => {
    let menor = inicio[filtro.criterio];
    let maior = menor;
    for (const g of vorplex.graos) {
      menor = Math.min(menor, g[filtro.criterio]);
      maior = Math.max(maior, g[filtro.criterio]);
    }
    if (vorplex.graos.length === 0) [menor, maior] = [Math.min(menor, 0), Math.max(maior, 1)];
    cursor.min = Math.floor(menor * 100) / 100;
    cursor.max = (Math.floor(maior * 100) + 1) / 100;
    const rotulo = rotulos[filtro.criterio];
    cursor.setAttribute('aria-label', rotulo);
    exata.setAttribute('aria-label', t('valorExato', rotulo));
    exata.value = minimo();
  };

  const mostraCursor = () => {
    cursor.value = minimo();
    cursor.setAttribute('aria-valuetext', numero(minimo()));
  };

  const poeMinimo = (valor) => {
    if (!Number.isFinite(valor)) return;
    filtro.minimo[filtro.criterio] = valor;
    mostraCursor();
    depois();
  };
  cursor.addEventListener('input', () => {
    exata.value = cursor.value;
    poeMinimo(cursor.valueAsNumber);
  });
  exata.addEventListener('input', () => poeMinimo(exata.valueAsNumber));

  const escolha = porId('criterio');
  const poeCriterio = (criterio) => {
    filtro.criterio = criterio;
    escolha.value = criterio;
    preparaCursor();
    mostraCursor();
  };
  porId('nome-corr').textContent = rotulos[criterios[0]];
  porId('nome-corr').hidden = criterios.length > 1;
  escolha.hidden = criterios.length === 1;
  escolha.append(...criterios.map((c) => elemento('option', {value: c}, rotulos[c])));
  escolha.addEventListener('change', () => {
    poeCriterio(escolha.value);
    depois();
  });

  const repoe = () => {
    filtro.familias = new Set(letras);
    for (const {caixa} of caixas) caixa.checked = true;
    filtro.minimo = {...inicio};
    poeCriterio(criterios[0]);
    depois();
  };
  porId('filtro').addEventListener('reset', (evento) => {
    evento.preventDefault();
    repoe();
  });
  porId('filtro').addEventListener('submit', (evento) => evento.preventDefault());
  porId('baixa-csv').addEventListener('click', () =>
    vorplex.baixa('graos.csv', new Blob([vorplex.csvDoFiltro()], {type: 'text/csv'})));
  vorplex.csvDoFiltro = () =>
    vorplex.csv(vorplex.fotos.flatMap((foto) => foto.graos.filter(vorplex.passa)));

  const areaDasFotos = vorplex.fotos.reduce((s, f) => s + f.rows * f.cols, 0) * escala.lado ** 2;

  const mostraFichas = ({graos, distribuicao: {d, media, desvio}}) => {
    const valor = (x) => x === null ? '–' : `${medida(x)} ${unidade}`;
    const fichas = [
      [t('graos'), inteiro(graos.length)],
      [t('fotografias'), inteiro(vorplex.fotos.length)],
      ['D10', valor(d[10])], ['D50', valor(d[50]), 'forte'], ['D90', valor(d[90])],
      [t('media'), valor(media)], [t('desvio'), valor(desvio)],
    ];
    porId('fichas').replaceChildren(...fichas.map(([nome, texto, classe]) =>
      elemento('div', classe ? {class: classe} : {}, elemento('dt', {}, nome),
               elemento('dd', {}, texto))));
  };

  const linha = (nome, ...valores) => elemento('tr', {}, elemento('th', {scope: 'row'}, nome),
    ...valores.map((v) => elemento('td', {class: 'n'}, v)));
  const cabeca = (...nomes) => elemento('thead', {}, elemento('tr', {}, ...nomes.map((nome, k) =>
    elemento('th', k > 0 ? {class: 'n', scope: 'col'} : {scope: 'col'}, nome))));

  const mostraEstatisticas = ({graos, distribuicao: s}) => {
    const phi = calibrada ? 'φ' : 'φ (px)';
    const naBorda = graos.reduce((soma, g) => soma + g.borda, 0);
    const densidade = areaDasFotos > 0 ? graos.length / areaDasFotos : null;
    porId('percentis').replaceChildren(elemento('tbody', {},
      ...vorplex.percentis.map((p) => linha(`D${p} (${unidade})`, medida(s.d[p])))));
    porId('estatisticas').replaceChildren(elemento('tbody', {},
      linha(`${t('media')} (${unidade})`, medida(s.media)),
      linha(`${t('desvio')} (${unidade})`, medida(s.desvio)),
      linha(t('cu'), medida(s.uniformidade)), linha(t('cc'), medida(s.curvatura)),
      linha(`${t('mediaPhi')}, ${phi}`, medida(s.mediaPhi)),
      linha(`${t('selecao')}, ${phi}`, medida(s.selecao)),
      linha(t('assimetria'), medida(s.assimetria)), linha(t('curtose'), medida(s.curtose)),
      linha(t('densidade', `${unidade}²`), medida(densidade)),
      linha(t('naBorda'), inteiro(naBorda))));
  };

  const mostraPeneiras = ({classes}) => {
    const nome = ({de, ate}) => de === 0 ? `${t('fundo')} (< ${numero(ate)})` :
      ate === Infinity ? `≥ ${numero(de)}` : `${numero(de)} – ${numero(ate)}`;
    porId('peneiras').replaceChildren(
      cabeca(t('classe', unidade), t('graos'), t('retida'), t('passante')),
      elemento('tbody', {}, ...classes.slice().reverse().map((c) =>
        linha(nome(c), inteiro(c.graos), porcento(c.retida), porcento(c.passante)))));
  };

  const mostraContagem = ({graos}) => {
    porId('contagem').textContent =
      t('graosDe', inteiro(graos.length), inteiro(vorplex.graos.length));
    porId('filtro-papel').textContent = vorplex.filtroDito();
    porId('aviso').hidden = graos.length > 0;
    porId('aviso').textContent = t(vorplex.fotos.length === 0 ? 'semFotos' : 'semGraos');
    const porLetra = {c: 0, q: 0, r: 0, e: 0};
    for (const g of vorplex.graos) porLetra[g.letra] += alcanca(g);
    for (const {letra, quantos} of caixas) quantos.textContent = inteiro(porLetra[letra]);
  };

  // Everything after a change of the filter.
  vorplex.atualiza = () => {
    const graos = vorplex.graos.filter(vorplex.passa);
    const curva = vorplex.curva(graos);
    const selecao = {graos, curva, distribuicao: vorplex.distribui(curva),
                     classes: vorplex.peneira(curva, peneiras)};
    vorplex.selecao = selecao;
    mostraContagem(selecao);
    mostraFichas(selecao);
    mostraEstatisticas(selecao);
    mostraPeneiras(selecao);
    vorplex.mostraGraficos(selecao);
    vorplex.mostraFotos(graos);
  };

  // Once a frame, however often the slider speaks.
  let marcada = false;
  const depois = () => {
    if (marcada) return;
    marcada = true;
    requestAnimationFrame(() => {
      marcada = false;
      vorplex.atualiza();
    });
  };

  const nFotos = vorplex.fotos.length;
  porId('subtitulo').textContent = [
    `${inteiro(nFotos)} ${t(nFotos === 1 ? 'fotografia' : 'fotografias')}`,
    `${t('tamanho')}: ${t(ajustes.grandeza)}`, t('porPeso', t(ajustes.peso)),
    calibrada ? t('pixel', `${numero(escala.lado)} ${unidade}`) : t('semEscala'),
  ].join(' · ');
  porId('definicoes').textContent = t('definicoes', t(ajustes.peso));
  porId('bloco-peneiras').hidden = peneiras.length === 0;
  if (ajustes.comando !== '') {
    porId('comando').append(t('feito'), elemento('code', {}, ajustes.comando));
  }
  // What is scrolled to stays below the bar, whose height depends on how it wraps.
  new ResizeObserver(() => {
    document.documentElement.style.scrollPaddingTop = `${porId('filtro').offsetHeight + 8}px`;
  }).observe(porId('filtro'));
  poeCriterio(criterios[0]);
  vorplex.atualiza();
}
