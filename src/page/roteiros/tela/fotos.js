'use strict';
// The table of the photographs, each with its outlines in small.

{
  const {t, medida, elemento, letras, unidade} = vorplex;

  const novaMiniatura = (foto) => {
    const fator = Math.min(2 * 64 / foto.cols, 2 * 48 / foto.rows);
    const canvas = elemento('canvas', {width: Math.max(1, Math.round(foto.cols * fator)),
                                       height: Math.max(1, Math.round(foto.rows * fator)),
                                       role: 'img', 'aria-label': t('mapa', foto.nome)});
    return {canvas, fator, imagem: null, velha: true, vista: false};
  };

  const desenha = async (foto, m) => {
    if (!m.vista || !m.velha) return;
    m.velha = false;
    if (m.imagem === null) {
      const imagem = new Image();
      imagem.src = `data:image/jpeg;base64,${foto.miniatura}`;
      await imagem.decode();
      m.imagem = imagem;
    }
    const ctx = m.canvas.getContext('2d');
    ctx.setTransform(1, 0, 0, 1, 0, 0);
    ctx.drawImage(m.imagem, 0, 0, m.canvas.width, m.canvas.height);
    ctx.setTransform(m.fator, 0, 0, m.fator, 0.5 * m.fator, 0.5 * m.fator);
    for (const letra of letras) {
      const d = vorplex.daFoto(foto).filter((g) => g.letra === letra && vorplex.passa(g)).map(vorplex.caminho);
      const trilha = new Path2D(d.join(''));
      ctx.strokeStyle = vorplex.paletas.escuro[letra];
      ctx.lineWidth = 1.2 / m.fator;
      ctx.stroke(trilha);
    }
  };

  const linhas = vorplex.visores.map((visor) => {
    const {foto} = visor;
    const link = elemento('a', {href: `#foto-${foto.k}`, title: t('ver', foto.nome)},
                          elemento('bdi', {}, foto.nome));
    link.addEventListener('click', () => { visor.raiz.open = true; });
    const miniatura = novaMiniatura(foto);
    const celulas = Array.from({length: 3 + letras.length + 1}, () => elemento('td', {class: 'n'}));
    const raiz = elemento('tr', {}, elemento('td', {class: 'miniatura'}, miniatura.canvas),
      elemento('th', {scope: 'row'}, link),
      elemento('td', {class: 'n'}, `${foto.cols} × ${foto.rows}`), ...celulas);
    return {foto, miniatura, celulas, raiz};
  });

  const titulos = ['', t('nome'), t('pixels'), t('nesteFiltro'), ...letras.map((l) => t(l)),
                   `D50 (${unidade})`, t('media') + ` (${unidade})`, t('borda')];
  document.getElementById('tabela-fotos').append(
    elemento('thead', {}, elemento('tr', {}, ...titulos.map((titulo, k) =>
      elemento(titulo === '' ? 'td' : 'th',
               titulo === '' ? {class: 'miniatura'} : k > 1 ? {class: 'n', scope: 'col'} : {scope: 'col'}, titulo)))),
    elemento('tbody', {}, ...linhas.map(({raiz}) => raiz)));

  const observador = new IntersectionObserver((entradas) => {
    for (const {target, isIntersecting} of entradas) {
      const linha = linhas.find(({miniatura}) => miniatura.canvas === target);
      linha.miniatura.vista = isIntersecting;
      desenha(linha.foto, linha.miniatura);
    }
  }, {rootMargin: '200px'});
  for (const {miniatura} of linhas) observador.observe(miniatura.canvas);

  // Small pictures wait until the slider rests.
  const desenhaTodas = vorplex.depoisDe(150, () => {
    for (const {foto, miniatura} of linhas) desenha(foto, miniatura);
  });

  // Shows the selected grains, ascending in size, in table and viewers.
  vorplex.mostraFotos = (graos) => {
    const porFoto = vorplex.fotos.map(() => []);
    for (const g of graos) porFoto[g.foto.k].push(g);
    linhas.forEach(({miniatura, celulas}, k) => {
      const estes = porFoto[k];
      const d = vorplex.distribui(vorplex.curva(estes));
      const textos = [vorplex.inteiro(estes.length),
        ...letras.map((l) => vorplex.inteiro(estes.reduce((s, g) => s + (g.letra === l), 0))),
        medida(d.d[50]), medida(d.media), vorplex.inteiro(estes.reduce((s, g) => s + g.borda, 0))];
      celulas.forEach((celula, i) => { celula.textContent = textos[i]; });
      miniatura.velha = true;
    });
    desenhaTodas();
    vorplex.mostraVisores();
  };
}
