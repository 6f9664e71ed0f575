'use strict';
// Grains and distributions, by the definitions of the program's tables.

vorplex.letras = ['c', 'q', 'r', 'e'];
vorplex.percentis = [5, 10, 16, 25, 30, 50, 60, 75, 84, 90, 95];

{
  const {escala, grandeza, peso, borda} = vorplex.ajustes;
  // Which diameter is the size of a grain, and by what it counts: the reader's choice.
  vorplex.escolhas = {grandeza, peso};
  const campos = ['indice', 'letra', 'li', 'ci', 'd1', 'd2', 'ang', 'correl', 'area', 'equivalente',
                  'perimetro', 'menor', 'maior', 'alongamento', 'borda',
                  // of fitted grains
                  'apoio', 'contraste', 'erroLi', 'erroCi', 'erroD1', 'erroD2', 'erroAng'];

  // A grain from its row, the values in px.
  vorplex.novoGrao = (valores, foto) => {
    const g = {valores, foto};
    campos.forEach((campo, k) => { g[campo] = valores[k]; });
    return g;
  };

  const pesos = {
    numero: () => 1,
    area: (g, lado) => g.area * (lado * lado),
    volume: (g, lado) => {
      const d = g.equivalente * lado;
      return Math.PI / 6 * (d * d * d);
    },
  };

  // How many grains like this one there are for each that the border leaves whole.
  vorplex.quantosInteiros = (g) => {
    const [largura, altura] = vorplex.caixa(g);
    const chance = (1 - largura / g.foto.cols) * (1 - altura / g.foto.rows);
    return chance > 0 ? 1 / chance : 0;
  };

  // The standard error of a size, in px; 0 where none is known. Of the diameter of equal area from
  // those of both sizes, taken to be independent.
  vorplex.erroDoTamanho = (g, qual) => {
    if (g.erroD1 === undefined) return 0;
    const umTamanho = g.letra === 'c' || g.letra === 'q';
    if (qual !== 'equivalente') {
      return umTamanho || (g.d1 >= g.d2) === (qual === 'maior') ? g.erroD1 : g.erroD2;
    }
    if (umTamanho) return g.equivalente * (g.erroD1 / g.d1);
    const a = g.erroD1 / g.d1;
    const b = g.erroD2 / g.d2;
    return g.equivalente * (Math.sqrt(a * a + b * b) / 2);
  };

  // Gives the grains their size, in the unit of the scale, and weight, and puts them in ascending
  // order, so that any selection of them is ascending too.
  vorplex.ordena = (graos) => {
    const {grandeza: qual, peso: como} = vorplex.escolhas;
    for (const g of graos) {
      g.tamanho = g[qual] * g.foto.lado;
      g.inteiro = g.borda ? 0 : vorplex.quantosInteiros(g);
      g.vezes = borda === 'corrige' ? g.inteiro : 1;
      g.peso = pesos[como](g, g.foto.lado) * g.vezes;
      g.erro = vorplex.erroDoTamanho(g, qual) * g.foto.lado;
    }
    return graos.sort((a, b) => a.tamanho - b.tamanho || a.peso - b.peso);
  };

  vorplex.fotos = Array.from(document.querySelectorAll('script.foto'), (e, k) => {
    const foto = JSON.parse(e.textContent);
    foto.k = k;
    foto.lado ??= escala.lado;
    foto.graos = foto.graos.map((valores) => vorplex.novoGrao(valores, foto));
    return foto;
  });

  vorplex.graos = vorplex.ordena(vorplex.fotos.flatMap((foto) => foto.graos));

  // The share of the weight below each of the ascending grains, half its own included.
  vorplex.curva = (graos) => {
    let total = 0;
    for (const g of graos) total += g.peso;
    let abaixo = 0;
    const acumulada = new Float64Array(graos.length);
    graos.forEach((g, i) => {
      acumulada[i] = (abaixo + g.peso / 2) / total;
      abaixo += g.peso;
    });
    return {graos, acumulada, total};
  };

  // The size that p percent of the weight lies below; null without grains.
  vorplex.percentil = ({graos, acumulada}, p) => {
    if (graos.length === 0) return null;
    const alvo = p / 100;
    let de = 0;
    let ate = graos.length;
    while (de < ate) {
      const meio = (de + ate) >> 1;
      if (acumulada[meio] < alvo) de = meio + 1; else ate = meio;
    }
    if (de === 0) return graos[0].tamanho;
    if (de === graos.length) return graos[de - 1].tamanho;
    const t = (alvo - acumulada[de - 1]) / (acumulada[de] - acumulada[de - 1]);
    const a = graos[de - 1].tamanho;
    return a + t * (graos[de].tamanho - a);
  };

  // Graphic measures of Folk and Ward, in phi = -log2(size in mm).
  const folkWard = (d) => {
    const phi = (p) => vorplex.phi(d[100 - p]);
    const meio = phi(84) - phi(16);
    const todo = phi(95) - phi(5);
    const quartis = phi(75) - phi(25);
    const assimetria = (phi(16) + phi(84) - 2 * phi(50)) / (2 * meio) +
      (phi(5) + phi(95) - 2 * phi(50)) / (2 * todo);
    return {
      mediaPhi: (phi(16) + phi(50) + phi(84)) / 3,
      selecao: meio / 4 + todo / 6.6,
      assimetria: meio > 0 && todo > 0 ? assimetria : null,
      curtose: quartis > 0 ? todo / (2.44 * quartis) : null,
    };
  };

  // What is said of a curve; null where it can't be said.
  vorplex.distribui = (curva) => {
    const {graos, total} = curva;
    const d = {};
    for (const p of vorplex.percentis) d[p] = vorplex.percentil(curva, p);
    if (graos.length === 0) {
      return {graos: 0, d, media: null, desvio: null, mediaPhi: null, selecao: null,
              assimetria: null, curtose: null, uniformidade: null, curvatura: null};
    }
    let soma = 0;
    for (const g of graos) soma += g.peso * g.tamanho;
    const media = Math.min(Math.max(soma / total, graos[0].tamanho), graos.at(-1).tamanho);
    let quadrados = 0;
    for (const g of graos) quadrados += g.peso * (g.tamanho - media) ** 2;
    return {
      graos: graos.length, d, media, desvio: Math.sqrt(quadrados / total), ...folkWard(d),
      uniformidade: d[60] / d[10], curvatura: d[30] * d[30] / (d[10] * d[60]),
    };
  };

  // What stays on each sieve, de <= size < ate; the first class is the pan.
  vorplex.peneira = ({graos}, aberturas) => {
    if (aberturas.length === 0) return [];
    const classes = [0, ...aberturas].map((de, k) =>
      ({de, ate: aberturas[k] ?? Infinity, graos: 0, peso: 0, retida: null, passante: null}));
    let k = 0;
    for (const g of graos) {
      while (g.tamanho >= classes[k].ate) ++k;
      ++classes[k].graos;
      classes[k].peso += g.peso;
    }
    const total = classes.reduce((soma, classe) => soma + classe.peso, 0);
    let abaixo = 0;
    for (const classe of graos.length > 0 ? classes : []) {
      classe.retida = classe.peso / total;
      classe.passante = Math.min(abaixo / total, 1);
      abaixo += classe.peso;
    }
    return classes;
  };
}
