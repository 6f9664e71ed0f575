'use strict';
// What only paper shows: every photograph with the outlines of its selected grains.

{
  const {elemento, cores, letras} = vorplex;
  const SVG = 'http://www.w3.org/2000/svg';
  const raiz = document.getElementById('papel');

  const emSvg = (nome, atributos) => {
    const e = document.createElementNS(SVG, nome);
    for (const [chave, valor] of Object.entries(atributos)) e.setAttribute(chave, valor);
    return e;
  };

  // A path for each family, and one below it for its white rim.
  const contornos = (foto) => {
    const {rows, cols} = foto;
    const svg = emSvg('svg', {viewBox: `-0.5 -0.5 ${cols} ${rows}`, preserveAspectRatio: 'none'});
    const graos = vorplex.daFoto(foto).filter(vorplex.passa);
    const fino = Math.max(cols, rows) / 450;
    for (const letra of letras) {
      const d = graos.filter((g) => g.letra === letra).map(vorplex.caminho).join('');
      if (d === '') continue;
      svg.append(emSvg('path', {d, fill: 'none', stroke: '#fff', 'stroke-width': 1.8 * fino}),
                 emSvg('path', {d, fill: 'none', stroke: cores[letra], 'stroke-width': fino}));
    }
    return svg;
  };

  // The pictures must be there before printing begins, so they come when the page has time.
  const folhas = vorplex.fotos.map((foto) => {
    const imagem = elemento('img', {alt: ''});
    const moldura = elemento('div', {class: 'moldura'}, imagem);
    raiz.append(elemento('figure', {}, moldura,
      elemento('figcaption', {}, elemento('bdi', {}, foto.nome))));
    return {foto, imagem, moldura};
  });
  const chama = window.requestIdleCallback ?? ((f) => setTimeout(f, 50));
  const traz = (k) => chama(() => {
    if (k >= folhas.length) return;
    folhas[k].imagem.src = vorplex.endereco(folhas[k].foto);
    traz(k + 1);
  });
  window.addEventListener('load', () => traz(0));

  window.addEventListener('beforeprint', () => {
    for (const {foto, imagem, moldura} of folhas) {
      if (!imagem.src) imagem.src = vorplex.endereco(foto);
      moldura.querySelector('svg')?.remove();
      moldura.append(contornos(foto));
    }
  });
}
