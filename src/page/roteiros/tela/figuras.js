'use strict';
// The pictures of the photographs, and outlines drawn on them.

{
  const {cores} = vorplex;
  const figuras = document.querySelectorAll('script.figura');

  // An address of the picture, made once.
  vorplex.endereco = (foto) => {
    if (!foto.endereco) {
      const bytes = Uint8Array.from(atob(figuras[foto.k].textContent), (c) => c.charCodeAt(0));
      foto.endereco = URL.createObjectURL(new Blob([bytes], {type: 'image/jpeg'}));
    }
    return foto.endereco;
  };

  // The picture, when it has been decoded.
  vorplex.imagem = (foto) => {
    foto.imagem ??= (async () => {
      const imagem = new Image();
      imagem.src = vorplex.endereco(foto);
      await imagem.decode();
      return imagem;
    })();
    return foto.imagem;
  };

  // Draws the outline into a canvas whose units are pixels of the photograph, `pixel` of them wide
  // to one of the screen, in the colour of its family with a white rim.
  vorplex.risca = (ctx, g, pixel) => {
    const trilha = new Path2D(vorplex.caminho(g));
    for (const [cor, largura] of [['#fff', 4], [cores[g.letra], 2]]) {
      ctx.strokeStyle = cor;
      ctx.lineWidth = largura * pixel;
      ctx.stroke(trilha);
    }
  };
}
