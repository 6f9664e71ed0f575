'use strict';
// A viewer for each photograph: the picture with the outlines of the grains.

{
  const {t, numero, medida, lugar, elemento, cores, unidade} = vorplex;
  const {apurado} = vorplex.ajustes;
  const comUnidade = (g, px, potencia = 1) =>
    `${medida(px * g.foto.lado ** potencia)} ${unidade}${potencia === 2 ? '²' : ''}`;
  const plural = (n) => `${vorplex.inteiro(n)} ${t(n === 1 ? 'grao' : 'graos')}`;

  // Outlines at their exact place, where the library would round each point to a pixel, and with a
  // white rim, which is seen on dark grains.
  const COM_MARGEM = L.Canvas.extend({
    _updatePoly(camada) {
      if (!this._drawing || camada._parts.length === 0) return;
      const fator = this._map.options.crs.scale(this._map.getZoom());
      const origem = this._map.getPixelOrigin();
      this._ctx.beginPath();
      for (const [x, y] of camada.options.contorno) {
        this._ctx.lineTo(x * fator - origem.x, y * fator - origem.y);
      }
      this._ctx.closePath();
      this._fillStroke(this._ctx, camada);
    },
    _fillStroke(ctx, camada) {
      ctx.setLineDash([]);
      ctx.globalAlpha = 0.8;
      ctx.lineWidth = camada.options.weight + 2;
      ctx.strokeStyle = '#fff';
      ctx.stroke();
      L.Canvas.prototype._fillStroke.call(this, ctx, camada);
    },
  });

  const estilo = (g, escolhido) => ({
    color: cores[g.letra], weight: escolhido ? 4 : 2, opacity: 1, fillColor: cores[g.letra],
    fillOpacity: escolhido ? 0.35 : 0.08, dashArray: g.candidato ? '4 4' : null,
  });

  // Place and sizes; of a fitted grain with their standard errors.
  // None is known of what was drawn and not yet fitted.
  const comErro = (texto, erro) => apurado && erro > 0 ? `${texto} ± ${numero(erro, 2)}` : texto;
  const tamanho = (g, d, erro) => apurado ?
    `${comErro(medida(d * g.foto.lado), erro * g.foto.lado)} ${unidade}` : comUnidade(g, d);
  const centro = (g) => apurado ?
    [[t('linha'), `${comErro(lugar(g.li), g.erroLi)} px`],
     [t('coluna'), `${comErro(lugar(g.ci), g.erroCi)} px`]] :
    [[t('centro'), `${g.li}, ${g.ci} px`]];

  const registro = (g) => {
    const dois = g.letra === 'r' || g.letra === 'e';
    const d1 = tamanho(g, g.d1, g.erroD1);
    const campos = [
      [t('forma'), t(`um${g.letra}`)],
      ...centro(g),
      [t('tamanhos'), dois ? `${d1} × ${tamanho(g, g.d2, g.erroD2)}` : d1],
      [t('angulo'), g.letra === 'c' ? '–' : `${comErro(numero(g.ang), g.erroAng)}°`],
      ...(apurado ? [[t('apoio'), numero(g.apoio)], [t('contraste'), numero(g.contraste)]] : []),
      [t('correl'), numero(g.correl)],
      [t('area'), comUnidade(g, g.area, 2)],
      [t('equivalente'), comUnidade(g, g.equivalente)],
      [t('menor'), comUnidade(g, g.menor)],
      [t('maior'), comUnidade(g, g.maior)],
      [t('perimetro'), comUnidade(g, g.perimetro)],
      [t('alongamento'), numero(g.alongamento)],
      [t('tocaBorda'), t(g.borda ? 'sim' : 'nao')],
    ];
    return elemento('dl', {}, ...campos.flatMap(([nome, valor]) =>
      [elemento('dt', {}, nome), elemento('dd', {}, valor)]));
  };

  // A grain in a line.
  vorplex.dizGrao = (g) => `${g.indice}: ${t(`um${g.letra}`)}, ` +
    `${comUnidade(g, g[vorplex.escolhas.grandeza])}, ` +
    (apurado ? `${t('apoio').toLowerCase()} ${numero(g.apoio)}` :
      `${t('correl').toLowerCase()} ${numero(g.correl)}`);

  // Makes the map of a viewer and its outlines.
  const abre = (visor) => {
    const {foto} = visor;
    const mapa = L.map(visor.lugar, {
      crs: L.CRS.Simple, attributionControl: false, zoomControl: false, zoomSnap: 0,
      zoomDelta: 0.5, minZoom: -10, maxZoom: 5, scrollWheelZoom: false,
      renderer: new COM_MARGEM({padding: 0.2}),
    });
    // Places are those of pixel centres; rows grow downwards.
    const limites = L.latLngBounds([[0.5 - foto.rows, -0.5], [0.5, foto.cols - 0.5]]);
    visor.fundo = L.imageOverlay(vorplex.endereco(foto), limites, {alt: ''}).addTo(mapa);
    L.control.zoom({zoomInTitle: t('maisZoom'), zoomOutTitle: t('menosZoom')}).addTo(mapa);
    mapa.fitBounds(limites, {animate: false, padding: [4, 4]});
    mapa.setMinZoom(mapa.getZoom() - 0.5);
    mapa.setMaxBounds(limites.pad(0.3));
    // The wheel scrolls the page until the reader has chosen the picture.
    mapa.on('focus', () => mapa.scrollWheelZoom.enable());
    mapa.on('blur', () => mapa.scrollWheelZoom.disable());
    visor.camadas = new Map();
    visor.mapa = mapa;
    visor.tamanho = new ResizeObserver(() => mapa.invalidateSize({animate: false}));
    visor.tamanho.observe(visor.lugar);
    mudaFerramenta(visor);
  };

  const novaCamada = (visor, g) => {
    const pontos = vorplex.contorno(g);
    const camada = L.polygon(pontos.map(([x, y]) => [-y, x]),
                             {...estilo(g, false), contorno: pontos, smoothFactor: 0});
    camada.bindTooltip(() => elemento('span', {}, vorplex.dizGrao(g)), {sticky: true});
    camada.on('click', () => {
      if (visor.ferramenta === 'rejeita') corrige(visor, g);
      else if (visor.ferramenta === '') escolhe(visor, g, false);
    });
    return camada;
  };

  // Rejects a grain, or brings a candidate back.
  const corrige = (visor, g) => {
    if (!g.candidato) vorplex.rejeita(g);
    escolhe(visor, g.candidato ? vorplex.recupera(g) : null, false);
  };

  const mudaFerramenta = (visor) => {
    visor.paraDeDesenhar?.();
    visor.paraDeDesenhar = null;
    if (!visor.mapa) return;
    if (vorplex.letras.includes(visor.ferramenta)) {
      visor.paraDeDesenhar = vorplex.desenhaNoMapa(visor.mapa, visor.ferramenta, (figura) =>
        escolhe(visor, vorplex.desenha(figura, visor.foto), false));
    }
    mostra(visor);
  };

  const fecha = (visor) => {
    visor.paraDeDesenhar?.();
    visor.paraDeDesenhar = null;
    visor.tamanho.disconnect();
    visor.mapa.remove();
    visor.mapa = null;
    visor.camadas = null;
  };

  // Shows the outlines of the selected grains.
  const mostra = (visor) => {
    const graos = vorplex.daFoto(visor.foto).filter(vorplex.passa);
    visor.contagem.textContent = plural(graos.length);
    for (const botao of visor.botoes) botao.disabled = graos.length === 0;
    if (!visor.mapa && !visor.escolhido) return;
    const vistos = new Set(visor.comCandidatos ? [...graos, ...vorplex.candidatosDa(visor.foto)] : graos);
    if (visor.escolhido && !vistos.has(visor.escolhido)) escolhe(visor, null, false);
    if (!visor.mapa) return;
    for (const [g, camada] of visor.camadas) {
      if (!vistos.has(g)) camada.remove();
    }
    for (const g of vistos) {
      if (!visor.camadas.has(g)) visor.camadas.set(g, novaCamada(visor, g));
      visor.camadas.get(g).addTo(visor.mapa);
    }
  };

  // Marks a grain and shows its record; with `procura` the picture moves to it.
  const escolhe = (visor, g, procura) => {
    const antes = visor.camadas?.get(visor.escolhido);
    if (antes) antes.setStyle(estilo(visor.escolhido, false));
    visor.escolhido = g;
    const camada = visor.camadas?.get(g);
    if (camada) {
      camada.setStyle(estilo(g, true)).bringToFront();
      if (procura) visor.mapa.panInside([-g.li, g.ci], {padding: [40, 40]});
    }
    visor.ficha.replaceChildren(...(g === null ? [t('escolhaGrao')] :
      [elemento('p', {class: 'indice'}, `${t(g.candidato ? 'candidato' : 'grao')} ${g.indice}`),
       ...vorplex.acoesDoGrao(g, () => corrige(visor, g)), registro(g)]));
  };

  const anda = (visor, passo) => {
    const graos = vorplex.daFoto(visor.foto).filter(vorplex.passa);
    if (graos.length === 0) return;
    const i = graos.indexOf(visor.escolhido);
    const k = i < 0 ? (passo > 0 ? 0 : graos.length - 1) : i + passo;
    escolhe(visor, graos[(k + graos.length) % graos.length], true);
  };

  const novoVisor = (foto) => {
    const visor = {
      foto, mapa: null, camadas: null, escolhido: null,
      lugar: elemento('div', {class: 'mapa', role: 'application', 'aria-label': t('mapa', foto.nome)}),
      contagem: elemento('span', {class: 'quantos'}),
      ficha: elemento('div', {class: 'ficha', 'aria-live': 'polite'}, t('escolhaGrao')),
      botoes: [-1, 1].map((passo) => {
        const rotulo = t(passo < 0 ? 'anterior' : 'proximo');
        const b = elemento('button', {type: 'button', 'aria-label': rotulo, title: rotulo},
                           passo < 0 ? '◀' : '▶');
        b.addEventListener('click', () => anda(visor, passo));
        return b;
      }),
    };
    visor.raiz = elemento('details', {class: 'visor', id: `foto-${foto.k}`},
      elemento('summary', {}, elemento('bdi', {}, foto.nome), ' ', visor.contagem,
        foto.semFigura ? ` · ${t('semFigura')}` : ''),
      elemento('div', {class: 'corpo'}, visor.lugar,
        elemento('aside', {}, vorplex.novasFerramentas(visor, () => mudaFerramenta(visor)),
          elemento('div', {class: 'passos'},
            elemento('h3', {}, t('registro')), ...visor.botoes), visor.ficha)));
    visor.raiz.addEventListener('toggle', () => {
      if (visor.raiz.open && !visor.mapa) abre(visor);
      if (!visor.raiz.open && visor.mapa) fecha(visor);
    });
    document.getElementById('visores').append(visor.raiz);
    return visor;
  };

  vorplex.visores = vorplex.fotos.map(novoVisor);
  vorplex.escolheGrao = (k, g) => escolhe(vorplex.visores[k], g, true);

  if (vorplex.visores.length === 0) {
    document.querySelector('#visores .dica').textContent = t('semFotos');
  } else {
    // The first one opens by itself when the reader comes near.
    new IntersectionObserver(([entrada], observador) => {
      if (!entrada.isIntersecting) return;
      observador.disconnect();
      if (!vorplex.visores.some((v) => v.raiz.open)) vorplex.visores[0].raiz.open = true;
    }).observe(vorplex.visores[0].raiz);
  }

  // Shows the selected grains in the viewers.
  vorplex.mostraVisores = () => vorplex.visores.forEach(mostra);

  // Opens the photograph of a grain and marks it there.
  vorplex.vaiAoGrao = (g) => {
    const visor = vorplex.visores[g.foto.k];
    const fechado = !visor.raiz.open;
    visor.raiz.open = true;
    visor.raiz.scrollIntoView({block: 'start'});
    if (fechado && !visor.mapa) abre(visor);
    escolhe(visor, g, true);
  };
}
