'use strict';
// The words and numbers of the page. Everything that the scripts share hangs on `vorplex`.
const vorplex = {};

vorplex.ajustes = JSON.parse(document.getElementById('ajustes').textContent);

vorplex.textos = {
  pt: {
    filtro: 'Filtro', minCorrel: 'Correlação mínima', minApoio: 'Apoio mínimo',
    familias: 'Formas', repor: 'Repor filtro', criterio: 'O que o cursor limita',
    valorExato: '{0}, valor exato',
    baixaCsv: 'Baixar CSV', baixaPng: 'Baixar PNG', resumo: 'Resumo', distribuicao: 'Distribuição',
    estatisticas: 'Estatísticas', percentis: 'Percentis',
    peneiras: 'Peneiras', fotos: 'Fotografias', visores: 'Imagens',
    dicaVisor: 'Abra uma fotografia para ver os contornos. Arraste para mover; clique na imagem e ' +
      'use a roda do mouse, ou os botões + e −, para ampliar. Clique num grão para ver seu registro.',
    licencas: 'Licenças das bibliotecas desta página',
    c: 'Círculos', q: 'Quadrados', r: 'Retângulos', e: 'Elipses',
    umc: 'círculo', umq: 'quadrado', umr: 'retângulo', ume: 'elipse',
    equivalente: 'diâmetro equivalente', menor: 'diâmetro menor', maior: 'diâmetro maior',
    numero: 'número', area: 'área', volume: 'volume',
    grao: 'grão', graos: 'grãos', graosDe: '{0} de {1} grãos', fotografia: 'fotografia',
    fotografias: 'fotografias', tamanho: 'Tamanho', porPeso: 'Distribuição por {0}',
    pixel: 'pixel de {0}', semEscala: 'sem escala: tamanhos em pixels',
    media: 'Média', desvio: 'Desvio padrão', cu: 'Coeficiente de uniformidade Cu',
    cc: 'Coeficiente de curvatura Cc', mediaPhi: 'Média gráfica (Folk e Ward)',
    selecao: 'Seleção (Folk e Ward)', assimetria: 'Assimetria (Folk e Ward)',
    curtose: 'Curtose (Folk e Ward)', densidade: 'Grãos por {0}', naBorda: 'Tocam a borda',
    semGraos: 'Não há grãos neste filtro.', semFotos: 'Não há fotografias.',
    semFigura: 'imagem perdida',
    histograma: 'Histograma', curva: 'Curva cumulativa', rosa: 'Orientação',
    alongamento: 'Alongamento', eixoPeso: '% ({0})', eixoCurva: '% menor ({0})',
    eixoTamanho: '{0} ({1})', eixoAlong: 'diâmetro maior / menor', eixoGraos: '% dos grãos',
    dicaRosa: 'Direção do eixo maior dos retângulos e elipses, como se vê na fotografia; 0° é ' +
      'horizontal. Raio: parte dos grãos.',
    classe: 'Classe ({0})', fundo: 'fundo', retida: 'Retida %', passante: 'Passante %',
    nome: 'Nome', pixels: 'Pixels', borda: 'Na borda', ver: 'Ver {0}', nesteFiltro: 'grãos',
    registro: 'Registro', escolhaGrao: 'Nenhum grão escolhido.', anterior: 'Grão anterior',
    proximo: 'Próximo grão', centro: 'Centro (linha, coluna)', linha: 'Linha', coluna: 'Coluna', tamanhos: 'Tamanhos',
    angulo: 'Ângulo', correl: 'Correlação', apoio: 'Apoio',
    contraste: 'Contraste', perimetro: 'Perímetro', tocaBorda: 'Toca a borda',
    sim: 'sim', nao: 'não', forma: 'Forma', todo: 'Imagem inteira', mapa: 'Imagem de {0}',
    maisZoom: 'Ampliar', menosZoom: 'Reduzir',
    definicoes: 'Um grão conta por {0}. Percentis: posição de Hazen, (acumulado até o grão + ' +
      'metade dele) / total, linear no tamanho. Ângulos crescem no sentido horário.',
    feito: 'Feito com: ', filtroDito: 'Filtro: {0} ≥ {1}; {2}.', nenhuma: 'nenhuma forma',
    graficoDito: '{0}: {1}',
  },
  en: {
    filtro: 'Filter', minCorrel: 'Minimum correlation', minApoio: 'Minimum support',
    familias: 'Shapes', repor: 'Reset filter', criterio: 'What the slider limits',
    valorExato: '{0}, exact value',
    baixaCsv: 'Download CSV', baixaPng: 'Download PNG', resumo: 'Summary',
    distribuicao: 'Distribution', estatisticas: 'Statistics', percentis: 'Percentiles', peneiras: 'Sieves',
    fotos: 'Photographs', visores: 'Pictures',
    dicaVisor: 'Open a photograph to see the outlines. Drag to move; click the picture and use the ' +
      'mouse wheel, or the buttons + and −, to zoom. Click a grain to see its record.',
    licencas: 'Licences of the libraries in this page',
    c: 'Circles', q: 'Squares', r: 'Rectangles', e: 'Ellipses',
    umc: 'circle', umq: 'square', umr: 'rectangle', ume: 'ellipse',
    equivalente: 'equivalent diameter', menor: 'minor diameter', maior: 'major diameter',
    numero: 'number', area: 'area', volume: 'volume',
    grao: 'grain', graos: 'grains', graosDe: '{0} of {1} grains', fotografia: 'photograph',
    fotografias: 'photographs', tamanho: 'Size', porPeso: 'Distribution by {0}',
    pixel: 'pixel of {0}', semEscala: 'no scale: sizes in pixels',
    media: 'Mean', desvio: 'Standard deviation', cu: 'Coefficient of uniformity Cu',
    cc: 'Coefficient of curvature Cc', mediaPhi: 'Graphic mean (Folk and Ward)',
    selecao: 'Sorting (Folk and Ward)', assimetria: 'Skewness (Folk and Ward)',
    curtose: 'Kurtosis (Folk and Ward)', densidade: 'Grains per {0}', naBorda: 'Touching the border',
    semGraos: 'There are no grains in this filter.', semFotos: 'There are no photographs.',
    semFigura: 'picture lost',
    histograma: 'Histogram', curva: 'Cumulative curve', rosa: 'Orientation',
    alongamento: 'Aspect ratio', eixoPeso: '% ({0})', eixoCurva: '% finer ({0})',
    eixoTamanho: '{0} ({1})', eixoAlong: 'major / minor diameter', eixoGraos: '% of the grains',
    dicaRosa: 'Direction of the longer axis of rectangles and ellipses, as seen in the ' +
      'photograph; 0° is horizontal. Radius: share of the grains.',
    classe: 'Class ({0})', fundo: 'pan', retida: 'Retained %', passante: 'Passing %',
    nome: 'Name', pixels: 'Pixels', borda: 'At the border', ver: 'See {0}', nesteFiltro: 'grains',
    registro: 'Record', escolhaGrao: 'No grain is selected.', anterior: 'Previous grain',
    proximo: 'Next grain', centro: 'Centre (row, column)', linha: 'Row', coluna: 'Column', tamanhos: 'Sizes',
    angulo: 'Angle', correl: 'Correlation', apoio: 'Support',
    contraste: 'Contrast', perimetro: 'Perimeter',
    tocaBorda: 'Touches the border',
    sim: 'yes', nao: 'no', forma: 'Shape', todo: 'Whole picture', mapa: 'Picture of {0}',
    maisZoom: 'Zoom in', menosZoom: 'Zoom out',
    definicoes: 'A grain counts by its {0}. Percentiles: Hazen positions, (total up to the grain ' +
      '+ half of it) / total, linear in size. Angles grow clockwise.',
    feito: 'Made by: ', filtroDito: 'Filter: {0} ≥ {1}; {2}.', nenhuma: 'no shape',
    graficoDito: '{0}: {1}',
  },
}[vorplex.ajustes.idioma];

// The text of a key, {0} and {1} replaced.
vorplex.t = (chave, ...partes) =>
  partes.reduce((s, parte, i) => s.replace(`{${i}}`, () => parte), vorplex.textos[chave]);

{
  const lingua = vorplex.ajustes.idioma === 'en' ? 'en' : 'pt-BR';
  const inteiro = new Intl.NumberFormat(lingua, {maximumFractionDigits: 0});
  const formatos = new Map();

  vorplex.inteiro = (n) => inteiro.format(n);

  // With so many significant digits; a dash where there is no number.
  vorplex.numero = (x, digitos = 4) => {
    if (x === null || !Number.isFinite(x)) return '–';
    if (x !== 0 && (Math.abs(x) < 1e-4 || Math.abs(x) >= 1e7)) return x.toExponential(digitos - 1);
    if (!formatos.has(digitos)) {
      formatos.set(digitos, new Intl.NumberFormat(lingua, {maximumSignificantDigits: digitos}));
    }
    return formatos.get(digitos).format(x);
  };

  const medida = new Intl.NumberFormat(lingua,
    {minimumSignificantDigits: 4, maximumSignificantDigits: 4, useGrouping: false});
  const porcento = new Intl.NumberFormat(lingua,
    {minimumFractionDigits: 2, maximumFractionDigits: 2});

  // A result, always with four digits.
  vorplex.medida = (x) => x !== null && x !== 0 && Math.abs(x) >= 1e-4 && Math.abs(x) < 1e7 ?
    medida.format(x) : vorplex.numero(x);
  const lugar = new Intl.NumberFormat(lingua, {maximumFractionDigits: 2, useGrouping: false});

  // A place in pixels, to a hundredth.
  vorplex.lugar = (x) => lugar.format(x);
  vorplex.porcento = (x) => x === null ? '–' : porcento.format(100 * x);
}

{
  const {unidade} = vorplex.ajustes.escala;
  vorplex.unidade = unidade === 'um' ? 'µm' : unidade;
}

// A new element with attributes, and children that are elements or texts.
vorplex.elemento = (nome, atributos = {}, ...filhos) => {
  const e = document.createElement(nome);
  for (const [chave, valor] of Object.entries(atributos)) e.setAttribute(chave, valor);
  e.append(...filhos);
  return e;
};

// Hands a file to the reader.
vorplex.baixa = (nome, conteudo) => {
  const url = URL.createObjectURL(conteudo);
  const a = vorplex.elemento('a', {href: url, download: nome});
  document.body.append(a);
  a.click();
  a.remove();
  setTimeout(() => URL.revokeObjectURL(url), 10000);
};

for (const e of document.querySelectorAll('[data-t]')) e.textContent = vorplex.t(e.dataset.t);
for (const e of document.querySelectorAll('[data-rotulo]')) {
  e.setAttribute('aria-label', vorplex.t(e.dataset.rotulo));
}
