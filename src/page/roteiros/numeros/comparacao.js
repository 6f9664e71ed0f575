'use strict';
// Two groups of photographs compared: the distance of Kolmogorov and Smirnov between their curves, and
// how often chance gives one as large. Grains of a photograph resemble each other, so what is dealt
// out anew to the two groups is whole photographs: a permutation test.

{
  const TODAS = 2000;     // ways of dealing are all tried up to here ...
  const SORTEADAS = 999;  // ... or so many are drawn

  // Largest difference between the shares of the weight up to a size. `naPrimeira` says of each
  // photograph, by number, which group it is in; grains ascend.
  const distancia = (graos, naPrimeira) => {
    let total1 = 0;
    let total2 = 0;
    for (const {peso, k} of graos) {
      if (naPrimeira[k]) total1 += peso; else total2 += peso;
    }
    if (total1 === 0 || total2 === 0) return 0;
    let soma1 = 0;
    let soma2 = 0;
    let maior = 0;
    for (let i = 0; i < graos.length; ++i) {
      const {peso, k, tamanho} = graos[i];
      if (naPrimeira[k]) soma1 += peso; else soma2 += peso;
      if (i + 1 < graos.length && graos[i + 1].tamanho === tamanho) continue;
      maior = Math.max(maior, Math.abs(soma1 / total1 - soma2 / total2));
    }
    return maior;
  };

  const combinacoes = (n, k) => {
    let c = 1;
    for (let i = 1; i <= k; ++i) c = c * (n - k + i) / i;
    return Math.round(c);
  };

  // Calls `faz` with every choice of `k` among `n`.
  const paraCada = (n, k, faz) => {
    const escolhidas = Array(n).fill(false);
    const poe = (de, faltam) => {
      if (faltam === 0) return faz(escolhidas);
      for (let i = de; i <= n - faltam; ++i) {
        escolhidas[i] = true;
        poe(i + 1, faltam - 1);
        escolhidas[i] = false;
      }
    };
    poe(0, k);
  };

  // A random choice of `k` among `n`; numbers of Marsaglia's xorshift, the same every time.
  const novoSorteio = () => {
    let x = 2463534242;
    const abaixoDe = (n) => {
      x ^= x << 13;
      x ^= x >>> 17;
      x ^= x << 5;
      return Math.floor((x >>> 0) / 4294967296 * n);
    };
    return (n, k) => {
      const escolhidas = Array(n).fill(false);
      for (let faltam = k, i = 0; i < n; ++i) {
        if (abaixoDe(n - i) < faltam) {
          escolhidas[i] = true;
          --faltam;
        }
      }
      return escolhidas;
    };
  };

  // `a` and `b` are lists of photographs, each a list of grains with tamanho and peso. Returns the
  // distance, `p`, the share of the dealings (that of the photographs as they are among them) whose
  // distance is as large, and how many dealings there were; p is null where there are only one or two.
  vorplex.compara = (a, b) => {
    const fotos = [...a, ...b];
    const graos = fotos.flatMap((lista, k) => lista.map(({tamanho, peso}) => ({tamanho, peso, k})))
      .sort((g, h) => g.tamanho - h.tamanho);
    const d = distancia(graos, fotos.map((_, k) => k < a.length));
    const modos = combinacoes(fotos.length, a.length);
    const tanto = (escolhidas) => distancia(graos, escolhidas) >= d * (1 - 1e-12) ? 1 : 0;
    if (modos < 3) return {d, p: null, modos};
    let vezes = 0;
    if (modos <= TODAS) {
      paraCada(fotos.length, a.length, (escolhidas) => { vezes += tanto(escolhidas); });
      return {d, p: vezes / modos, modos};
    }
    const sorteia = novoSorteio();
    for (let i = 0; i < SORTEADAS; ++i) vezes += tanto(sorteia(fotos.length, a.length));
    return {d, p: (vezes + 1) / (SORTEADAS + 1), modos: SORTEADAS + 1};
  };
}
