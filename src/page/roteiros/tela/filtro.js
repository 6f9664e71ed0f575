'use strict';
// The filter: what a grain must reach, for each family by itself, and which families count.

{
  const {t, numero, inteiro, elemento, letras, ajustes} = vorplex;
  const porId = (id) => document.getElementById(id);
  const cursor = porId('corr');
  const exata = porId('corr-exata');

  // What the slider limits: of fitted grains their support or, if the reader says so, correlation.
  // It begins at the thresholds by which the grains were chosen.
  const criterios = ajustes.apurado ? ['apoio', 'correl'] : ['correl'];
  const rotulos = {apoio: t('minApoio'), correl: t('minCorrel')};
  const copia = (x) => JSON.parse(JSON.stringify(x));
  const filtro = {criterio: criterios[0], minimo: copia(ajustes.limiares), familias: new Set(letras), alvo: ''};
  const minimos = () => filtro.minimo[filtro.criterio];
  const minimo = () => filtro.alvo === '' ? Math.min(...letras.map((l) => minimos()[l])) : minimos()[filtro.alvo];

  // Whether the grain reaches the threshold of its family; what a person has added always does.
  const alcanca = (g) => g.manual || g[filtro.criterio] >= minimos()[g.letra];
  vorplex.passa = (g) => alcanca(g) && filtro.familias.has(g.letra);

  vorplex.filtroDito = () => {
    const nome = t(filtro.criterio).toLowerCase();
    const vistas = letras.filter((l) => filtro.familias.has(l));
    const nomes = (lista) => lista.map((l) => t(l).toLowerCase()).join(', ');
    const valores = [...new Set(vistas.map((l) => minimos()[l]))];
    if (valores.length < 2) return t('filtroDito', nome, numero(valores[0] ?? minimo()), nomes(vistas) || t('nenhuma'));
    return t('filtroPorForma', nome, valores.map((v) =>
      `≥ ${numero(v)} (${nomes(vistas.filter((l) => minimos()[l] === v))})`).join(', '));
  };

  const caixas = letras.map((letra) => {
    const caixa = elemento('input', {type: 'checkbox', role: 'switch', checked: '', value: letra});
    const quantos = elemento('span', {class: 'quantos'});
    const amostra = elemento('span', {class: 'amostra'});
    porId('familias').append(elemento('label', {}, caixa, amostra, t(letra), ' ', quantos));
    caixa.addEventListener('change', () => {
      if (caixa.checked) filtro.familias.add(letra); else filtro.familias.delete(letra);
      vorplex.depois();
    });
    return {letra, caixa, quantos, amostra};
  });
  const pintaAmostras = () => {
    for (const {letra, amostra} of caixas) {
      amostra.style.background = `url(${vorplex.tema.azulejos[letra].toDataURL()})`;
    }
  };

  // Below the grains there are, and to above the best of them.
  const preparaCursor = () => {
    const valores = [...Object.values(ajustes.limiares[filtro.criterio]), ...Object.values(minimos())];
    let menor = Math.min(...valores);
    let maior = Math.max(...valores);
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
    exata.value = vorplex.digitado(minimo());
    mostraCursor();
  };

  const mostraCursor = () => {
    cursor.value = minimo();
    cursor.setAttribute('aria-valuetext', numero(minimo()));
  };

  const poeMinimo = (valor) => {
    exata.classList.toggle('errada', !Number.isFinite(valor));
    if (!Number.isFinite(valor)) return;
    for (const l of filtro.alvo === '' ? letras : [filtro.alvo]) minimos()[l] = valor;
    mostraCursor();
    vorplex.depois();
  };
  cursor.addEventListener('input', () => {
    exata.value = vorplex.digitado(cursor.valueAsNumber);
    poeMinimo(cursor.valueAsNumber);
  });
  exata.addEventListener('input', () => poeMinimo(vorplex.lido(exata.value)));

  const escolha = porId('criterio');
  const alvo = porId('alvo');
  const poeCriterio = (criterio) => {
    filtro.criterio = escolha.value = criterio;
    preparaCursor();
  };
  porId('nome-corr').textContent = rotulos[criterios[0]];
  porId('nome-corr').hidden = criterios.length > 1;
  escolha.hidden = criterios.length === 1;
  escolha.append(...criterios.map((c) => elemento('option', {value: c}, rotulos[c])));
  escolha.addEventListener('change', () => {
    poeCriterio(escolha.value);
    vorplex.depois();
  });
  alvo.append(...['', ...letras].map((l) => elemento('option', {value: l}, t(l === '' ? 'todasAsFormas' : l))));
  alvo.addEventListener('change', () => {
    filtro.alvo = alvo.value;
    preparaCursor();
  });

  const repoe = () => {
    filtro.familias = new Set(letras);
    for (const {caixa} of caixas) caixa.checked = true;
    filtro.minimo = copia(ajustes.limiares);
    filtro.alvo = alvo.value = '';
    poeCriterio(criterios[0]);
    vorplex.depois();
  };
  porId('filtro').addEventListener('reset', (evento) => {
    evento.preventDefault();
    repoe();
  });
  porId('filtro').addEventListener('submit', (evento) => evento.preventDefault());
  porId('baixa-csv').addEventListener('click', () =>
    vorplex.baixa('graos.csv', new Blob([vorplex.csvDoFiltro()], {type: 'text/csv'})));
  vorplex.csvDoFiltro = () =>
    vorplex.csv(vorplex.fotos.flatMap((foto) => vorplex.daFoto(foto).filter(vorplex.passa)));

  vorplex.mostraContagem = ({graos}) => {
    porId('contagem').textContent =
      t('graosDe', inteiro(graos.length), inteiro(vorplex.graos.length));
    porId('filtro-papel').textContent = vorplex.filtroDito();
    porId('aviso').hidden = graos.length > 0;
    porId('aviso').textContent = t(vorplex.fotos.length === 0 ? 'semFotos' : 'semGraos');
    const porLetra = {c: 0, q: 0, r: 0, e: 0};
    for (const g of vorplex.graos) porLetra[g.letra] += alcanca(g);
    for (const {letra, quantos} of caixas) quantos.textContent = inteiro(porLetra[letra]);
  };

  // On a phone the bar holds the slider and the count; the rest opens.
  const mais = porId('mais');
  mais.addEventListener('click', () => {
    const aberto = porId('filtro').classList.toggle('aberto');
    mais.setAttribute('aria-expanded', aberto);
  });
  // What is scrolled to stays below the bar, whose height depends on how it wraps.
  new ResizeObserver(() => {
    document.documentElement.style.scrollPaddingTop = `${porId('filtro').offsetHeight + 8}px`;
  }).observe(porId('filtro'));

  pintaAmostras();
  vorplex.quandoMudaOTema(pintaAmostras);
  poeCriterio(criterios[0]);
}
