'use strict';
// The grains of a class, each cut out of its photograph.

{
  const {t, elemento, inteiro} = vorplex;
  const LADO = 72;
  const VISTOS = 60;
  const raiz = document.getElementById('galeria');
  let aberta = null;

  const recorta = async (canvas, g) => {
    const imagem = await vorplex.imagem(g.foto);
    const pixel = 2;
    const vista = g.maior * 1.5 + 4;
    const fator = LADO * pixel / vista;
    const ctx = canvas.getContext('2d');
    ctx.setTransform(fator, 0, 0, fator, -fator * (g.ci - vista / 2), -fator * (g.li - vista / 2));
    // Places are those of pixel centres.
    ctx.drawImage(imagem, -0.5, -0.5, g.foto.cols, g.foto.rows);
    vorplex.risca(ctx, g, vista / LADO);
  };

  const novaPeca = (g) => {
    const canvas = elemento('canvas', {width: 2 * LADO, height: 2 * LADO});
    const botao = elemento('button', {type: 'button', title: vorplex.dizGrao(g),
                                      'aria-label': `${g.foto.nome}: ${vorplex.dizGrao(g)}`}, canvas);
    botao.addEventListener('click', () => vorplex.vaiAoGrao(g));
    recorta(canvas, g);
    return botao;
  };

  const mostra = () => {
    const graos = vorplex.selecao.graos.filter(aberta.escolhe);
    const fecha = elemento('button', {type: 'button', class: 'discreto'}, t('fecha'));
    fecha.addEventListener('click', () => vorplex.fechaGaleria());
    raiz.hidden = false;
    raiz.replaceChildren(
      elemento('div', {class: 'titulo'},
        elemento('h3', {}, `${aberta.titulo}: ${inteiro(graos.length)} ${t(graos.length === 1 ? 'grao' : 'graos')}`),
        fecha),
      elemento('div', {class: 'pecas'}, ...graos.slice(0, VISTOS).map(novaPeca)),
      ...(graos.length > VISTOS ? [elemento('p', {class: 'dica'}, t('maisGraos', inteiro(VISTOS)))] : []));
  };

  // Shows the selected grains for which `escolhe` holds.
  vorplex.mostraGaleria = (titulo, escolhe) => {
    aberta = {titulo, escolhe};
    mostra();
  };
  vorplex.fechaGaleria = () => {
    aberta = null;
    raiz.hidden = true;
  };
  vorplex.refazGaleria = vorplex.depoisDe(200, () => {
    if (aberta) mostra();
  });
}
