'use strict';
// The table to download.

// The table of the grains as the program writes it, with the photograph first: the values of every
// grain, then those of fitted ones. Behind either, when there is a scale, stand its lengths and areas
// once more in the unit of the scale.
vorplex.csv = (graos) => {
  const {colunas, escala, formas} = vorplex.ajustes;
  const campo = (v) => {
    const s = String(v);
    return /[,;\t"\r\n]/.test(s) ? `"${s.replaceAll('"', '""')}"` : s;
  };
  const emDigitos = (x) => Number(x.toPrecision(8));
  const potencia = (nome) => nome.endsWith('_px2') ? 2 : nome.endsWith('_px') ? 1 : 0;
  const ehDoPx = (nome) => potencia(nome) > 0;
  const calibra = (nomes, px, lado) => escala.unidade === 'px' ? [] : px.flatMap((v, k) =>
    ehDoPx(nomes[k]) ? [emDigitos(v * (potencia(nomes[k]) === 2 ? lado * lado : lado))] : []);
  const deTodos = colunas.slice(1, 17);
  const calibradas = escala.unidade === 'px' ? 0 : deTodos.filter(ehDoPx).length;
  const dosApurados = colunas.slice(17 + calibradas);
  const linhas = graos.map((g) => {
    const px = [...g.valores.slice(0, 2), formas[g.letra], ...g.valores.slice(2, 15)];
    const mais = g.valores.slice(15);
    const {lado} = g.foto;
    return [g.foto.nome, ...px, ...calibra(deTodos, px, lado), ...mais, ...calibra(dosApurados, mais, lado)]
      .map(campo).join(',');
  });
  return [colunas.map(campo).join(','), ...linhas, ''].join('\n');
};
