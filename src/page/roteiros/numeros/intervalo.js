'use strict';
// 95 % intervals of a distribution, by the definitions and with the random numbers of
// src/measure/incerteza.

{
  // xoshiro128** 1.1 of Blackman and Vigna.
  const novoSorteio = (semente) => {
    let x = semente | 0;
    const palavra = () => {
      x = (x + 0x9E3779B9) | 0;
      let y = Math.imul(x ^ (x >>> 16), 0x85EBCA6B);
      y = Math.imul(y ^ (y >>> 13), 0xC2B2AE35);
      return y ^ (y >>> 16);
    };
    let [s0, s1, s2, s3] = [palavra(), palavra(), palavra(), palavra()];
    const gira = (v, n) => (v << n) | (v >>> (32 - n));
    return () => {
      const saida = Math.imul(gira(Math.imul(s1, 5), 7), 9) >>> 0;
      const t = s1 << 9;
      s2 ^= s0;
      s3 ^= s1;
      s1 ^= s2;
      s0 ^= s3;
      s2 ^= t;
      s3 = gira(s3, 11);
      return saida;
    };
  };
  const abaixoDe = (n, sorteado) => Math.floor(sorteado * n / 4294967296);

  const abaixo = (tamanho, d) => tamanho === d ? 0.5 : tamanho < d ? 1 : 0;

  // Which part of the differences between photographs their grains do not explain.
  const entreFotos = (v, fotos, curva) => {
    if (fotos < 2) return 0;
    let dasFotos = 0;
    let dosGraos = 0;
    for (const p of vorplex.percentis) {
      const d = vorplex.percentil(curva, p);
      const totais = [];
      let soma = 0;
      v.forEach((g, i) => {
        if (i === 0 || g.foto !== v[i - 1].foto) totais.push(0);
        const z = g.peso * (abaixo(g.tamanho, d) - p / 100);
        totais[totais.length - 1] += z;
        soma += z * z;
      });
      const media = totais.reduce((s, t) => s + t, 0) / fotos;
      const quadrados = totais.reduce((s, t) => s + (t - media) * (t - media), 0);
      dasFotos += quadrados * (fotos / (fotos - 1));
      dosGraos += soma;
    }
    return dasFotos > dosGraos ? 1 - dosGraos / dasFotos : 0;
  };

  // The grains by size, each twice where sizes have errors, and where those of a photograph stand.
  const urna = (graos, curva) => {
    const v = graos.slice().sort((a, b) => a.foto.k - b.foto.k || a.tamanho - b.tamanho ||
      a.peso - b.peso || a.erro - b.erro);
    const copias = v.some((g) => g.erro > 0) ? 2 : 1;
    const comeco = [];
    const entradas = [];
    v.forEach((g, i) => {
      if (i === 0 || g.foto !== v[i - 1].foto) comeco.push(i);
      const e = copias === 2 ? Math.min(g.erro, 0.9 * g.tamanho) : 0;
      const foto = comeco.length - 1;
      entradas.push({tamanho: g.tamanho - e, peso: 0, cheio: g.peso, foto});
      if (copias === 2) entradas.push({tamanho: g.tamanho + e, peso: 0, cheio: g.peso, foto});
    });
    comeco.push(v.length);
    const ordem = entradas.map((_, i) => i)
      .sort((a, b) => entradas[a].tamanho - entradas[b].tamanho || a - b);
    const lugar = new Uint32Array(ordem.length);
    ordem.forEach((i, k) => { lugar[i] = k; });
    const fotos = comeco.length - 1;
    return {entradas: ordem.map((i) => entradas[i]), lugar, comeco, copias, fotos,
            entreFotos: entreFotos(v, fotos, curva)};
  };

  // The curve of grains drawn again.
  const reamostra = (u, sorteio, vezes) => {
    const vezesDaFoto = new Float64Array(u.fotos).fill(1);
    if (u.entreFotos > 0) {
      const sorteadas = new Float64Array(u.fotos);
      for (let k = 0; k < u.fotos; ++k) ++sorteadas[abaixoDe(u.fotos, sorteio())];
      const passo = Math.sqrt(u.entreFotos);
      for (let k = 0; k < u.fotos; ++k) vezesDaFoto[k] = 1 + passo * (sorteadas[k] - 1);
    }
    vezes.fill(0);
    const {lugar, copias, entradas} = u;
    for (let k = 0; k < u.fotos; ++k) {
      const de = u.comeco[k];
      const n = u.comeco[k + 1] - de;
      for (let i = 0; i < n; ++i) {
        const x = sorteio();
        const grao = de + abaixoDe(n, x);
        ++vezes[lugar[copias === 2 ? 2 * grao + (x & 1) : grao]];
      }
    }
    const graos = [];
    for (let i = 0; i < entradas.length; ++i) {
      if (vezes[i] === 0) continue;
      const e = entradas[i];
      e.peso = vezes[i] * vezesDaFoto[e.foto] * e.cheio;
      if (e.peso > 0) graos.push(e);
    }
    return vorplex.curva(graos);
  };

  // The 97.5 % point of Student's t over that of the normal distribution.
  const alargamento = (umPorGraus) => {
    const tabela = [[0, 1.959964], [1 / 30, 2.042272], [1 / 20, 2.085963], [1 / 15, 2.131450],
                    [1 / 10, 2.228139], [1 / 8, 2.306004], [1 / 6, 2.446912], [1 / 4, 2.776445],
                    [1 / 3, 3.182446], [1 / 2, 4.302653], [1, 12.706205]];
    const x = Math.min(Math.max(umPorGraus, 0), 1);
    let i = 1;
    while (x > tabela[i][0]) ++i;
    const t = (x - tabela[i - 1][0]) / (tabela[i][0] - tabela[i - 1][0]);
    return (tabela[i - 1][1] + t * (tabela[i][1] - tabela[i - 1][1])) / tabela[0][1];
  };

  const termosEfetivos = (graos, termo) => {
    let soma = 0;
    let quadrados = 0;
    for (const g of graos) {
      const z = termo(g);
      soma += z;
      quadrados += z * z;
    }
    return quadrados > 0 ? soma * soma / quadrados : graos.length;
  };

  const larguras = ({graos}, {d, media, desvio}, u, efetivos) => {
    const entre = u.fotos > 1 ? u.entreFotos * u.entreFotos / (u.fotos - 1) : 0;
    const dosGraus = (graus) =>
      alargamento(1 / Math.max(graus, 1) + entre) / Math.sqrt(1 - u.entreFotos / u.fotos);
    const de = (z) => dosGraus(termosEfetivos(graos, (g) => z(g) * z(g)));
    const daMedia = de((g) => g.peso * (g.tamanho - media));
    return {
      d: Object.fromEntries(vorplex.percentis.map((p) =>
        [p, de((g) => g.peso * (abaixo(g.tamanho, d[p]) - p / 100))])),
      media: daMedia, uniformidade: daMedia, curvatura: daMedia, outras: daMedia,
      desvio: de((g) => {
        const x = g.tamanho - media;
        return g.peso * (x * x - desvio * desvio);
      }),
      peneiras: dosGraus(efetivos - 1),
    };
  };

  const quantil95 = (v) => {
    const ordenados = Float64Array.from(v).sort();
    return ordenados[Math.floor((v.length * 19 + 19) / 20) - 1];
  };

  // Both ends from all replicates of a number; null where it or one in twenty of them is missing.
  const serve = (x, todas) => {
    const v = todas.filter((y) => y !== null);
    return x !== null && v.length * 20 > todas.length * 19 ? v : null;
  };
  const porDiferenca = (x, todas, largura) => {
    const v = serve(x, todas);
    if (v === null) return null;
    const mais = largura * quantil95(v.map((y) => Math.abs(y - x)));
    return [x - mais, x + mais];
  };
  const porRazao = (x, todas, largura) => {
    const v = serve(x, todas);
    if (v === null || !(x > 0)) return porDiferenca(x, todas, largura);
    const vezes =
      1 + largura * (quantil95(v.map((y) => y > x ? y / x : y > 0 ? x / y : Infinity)) - 1);
    return Number.isFinite(vezes) ? [x / vezes, x * vezes] : null;
  };
  const parte = (limites, efetivos) => {
    if (limites === null) return null;
    const nenhum = 3.7 / (efetivos + 3.7);
    return [Math.max(0, Math.min(limites[0], 1 - nenhum)), Math.min(1, Math.max(limites[1], nenhum))];
  };

  // A percentile is at least what a lower one is, and at most what a higher one is.
  const emOrdem = (d) => {
    const lista = vorplex.percentis.map((p) => d[p]);
    if (lista.includes(null)) return;
    for (let i = 1; i < lista.length; ++i) lista[i][0] = Math.max(lista[i][0], lista[i - 1][0]);
    for (let i = lista.length - 1; i > 0; --i) lista[i - 1][1] = Math.min(lista[i][1], lista[i - 1][1]);
  };

  const razoes = ['media', 'desvio', 'uniformidade', 'curvatura'];
  const diferencas = ['mediaPhi', 'selecao', 'assimetria', 'curtose'];

  const limites = ({curva, distribuicao, classes}, u, replicas) => {
    const efetivos = termosEfetivos(curva.graos, (g) => g.peso);
    const l = larguras(curva, distribuicao, u, efetivos);
    const todas = (valor) => replicas.map(valor);
    const s = {fotos: u.fotos, entreFotos: u.entreFotos, d: {}};
    for (const p of vorplex.percentis) {
      s.d[p] = porRazao(distribuicao.d[p], todas((r) => r.distribuicao.d[p]), l.d[p]);
    }
    emOrdem(s.d);
    for (const nome of razoes) {
      s[nome] = porRazao(distribuicao[nome], todas((r) => r.distribuicao[nome]), l[nome]);
    }
    for (const nome of diferencas) {
      s[nome] = porDiferenca(distribuicao[nome], todas((r) => r.distribuicao[nome]), l.outras);
    }
    const daPeneira = (k, nome) => parte(
      porDiferenca(classes[k][nome], todas((r) => r.classes[k][nome]), l.peneiras), efetivos);
    s.peneiras = classes.map((_, k) =>
      ({retida: daPeneira(k, 'retida'), passante: daPeneira(k, 'passante')}));
    return s;
  };

  vorplex.replicas = (graos) =>
    Math.min(Math.max(Math.floor(1e7 / Math.max(graos, 1)), 200), 1000);

  // Goes through the replicates, pausing after each; its return value is null or, by name as in a
  // distribution, [low, high] or null. `selecao` has curva, distribuicao and classes; the grains are
  // ascending and have tamanho, peso, erro and foto.k.
  function* calcula(selecao, aberturas, quantas, semente) {
    const {graos} = selecao.curva;
    if (graos.length < 2) return null;
    const u = urna(graos, selecao.curva);
    const sorteio = novoSorteio(semente);
    const vezes = new Uint32Array(u.entradas.length);
    const replicas = [];
    for (let k = 0; k < quantas; ++k) {
      const curva = reamostra(u, sorteio, vezes);
      replicas.push({distribuicao: vorplex.distribui(curva), classes: vorplex.peneira(curva, aberturas)});
      yield;
    }
    return limites(selecao, u, replicas);
  }

  vorplex.intervalos = (selecao, aberturas, quantas = vorplex.replicas(selecao.curva.graos.length),
                        semente = 1) => {
    const passos = calcula(selecao, aberturas, quantas, semente);
    for (;;) {
      const {done, value} = passos.next();
      if (done) return value;
    }
  };

  // The same in short stretches, so that the page goes on answering; calls `pronto` with the result
  // unless it is called again before. A small selection is done at once; a large one waits until the
  // slider rests.
  let vez = 0;
  vorplex.intervalosAosPoucos = (selecao, aberturas, pronto) => {
    const esta = ++vez;
    const passos =
      calcula(selecao, aberturas, vorplex.replicas(selecao.curva.graos.length), 1);
    const trecho = (milissegundos) => {
      if (esta !== vez) return;
      const fim = performance.now() + milissegundos;
      for (;;) {
        const {done, value} = passos.next();
        if (done) return pronto(value);
        if (performance.now() > fim) break;
      }
      setTimeout(trecho, 0, 12);
    };
    if (selecao.graos.length <= 2000) trecho(40); else setTimeout(trecho, 150, 12);
  };
}
