'use strict';
// Drawing a missing grain on its photograph. Circles and squares are dragged from their centre
// outwards, ellipses and rectangles along their longer axis from end to end; then the pointer opens
// their width, and a click takes it.

{
  const {cores} = vorplex;
  const MENOR = 4;  // px of the photograph, as small as a fitted grain can be

  const entre = ([x0, y0], [x1, y1]) => Math.hypot(x1 - x0, y1 - y0);
  const direcao = ([x0, y0], [x1, y1]) => Math.atan2(y1 - y0, x1 - x0) * 180 / Math.PI;

  const doCentro = (letra, p, q) => {
    const d = 2 * entre(p, q);
    return {letra, ci: p[0], li: p[1], d1: d, d2: d, ang: letra === 'q' ? direcao(p, q) : 0};
  };
  const doEixo = (letra, p, q, largura) =>
    ({letra, ci: (p[0] + q[0]) / 2, li: (p[1] + q[1]) / 2, d1: entre(p, q), d2: largura, ang: direcao(p, q)});
  // Twice the distance of a point from the axis.
  const larguraAte = (p, q, r) => {
    const d = entre(p, q);
    return d === 0 ? 0 : 2 * Math.abs((q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0])) / d;
  };

  // Begins to draw grains of a family on a map; `acabou` takes each shape. Returns how to end it.
  vorplex.desenhaNoMapa = (mapa, letra, acabou) => {
    const lugar = mapa.getContainer();
    const um = letra === 'c' || letra === 'q';
    let p = null;
    let q = null;  // the other end, once the axis stands
    let previa = null;

    const noMapa = (evento) => {
      const {lat, lng} = mapa.mouseEventToLatLng(evento);
      return [lng, -lat];
    };
    const mostra = (f) => {
      previa?.remove();
      previa = null;
      if (f === null || f.d1 < 1) return;
      const pontos = vorplex.contorno(f);
      previa = L.polygon(pontos.map(([x, y]) => [-y, x]), {
        contorno: pontos, smoothFactor: 0, interactive: false, color: cores[letra], weight: 2, fillOpacity: 0.2,
      }).addTo(mapa);
    };
    const acaba = (f) => {
      p = q = null;
      mostra(null);
      if (f.d1 >= MENOR && f.d2 >= MENOR) acabou(f);
    };
    const aperta = (evento) => {
      if (evento.button > 0 || evento.target.closest('.leaflet-control')) return;
      evento.preventDefault();
      if (q) return;
      p = noMapa(evento);
      lugar.setPointerCapture(evento.pointerId);
    };
    const move = (evento) => {
      if (!p) return;
      const r = noMapa(evento);
      if (um) mostra(doCentro(letra, p, r));
      else mostra(doEixo(letra, p, q ?? r, q ? Math.max(larguraAte(p, q, r), 1) : entre(p, r) / 2));
    };
    const solta = (evento) => {
      if (!p) return;
      const r = noMapa(evento);
      if (um) acaba(doCentro(letra, p, r));
      else if (q) acaba(doEixo(letra, p, q, larguraAte(p, q, r)));
      else if (entre(p, r) < MENOR) p = null;
      else q = r;
    };
    const escapa = (evento) => {
      if (evento.key !== 'Escape') return;
      p = q = null;
      mostra(null);
    };
    const ouvidos = [['pointerdown', aperta], ['pointermove', move], ['pointerup', solta], ['keydown', escapa]];
    for (const [nome, f] of ouvidos) lugar.addEventListener(nome, f);
    mapa.dragging.disable();
    mapa.boxZoom.disable();
    mapa.doubleClickZoom.disable();
    lugar.classList.add('desenhando');
    return () => {
      for (const [nome, f] of ouvidos) lugar.removeEventListener(nome, f);
      mostra(null);
      mapa.dragging.enable();
      mapa.boxZoom.enable();
      mapa.doubleClickZoom.enable();
      lugar.classList.remove('desenhando');
    };
  };
}
