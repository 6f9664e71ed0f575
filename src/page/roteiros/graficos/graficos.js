'use strict';
// The four plots, in their frames.

{
  const {t, unidade, elemento} = vorplex;

  Chart.defaults.font.family = 'system-ui, "Segoe UI", Roboto, "DejaVu Sans", sans-serif';
  Chart.defaults.animation = false;
  Chart.defaults.maintainAspectRatio = false;
  Chart.defaults.devicePixelRatio = Math.max(2, window.devicePixelRatio);
  Chart.register(vorplex.pluginFaixa, vorplex.pluginBarras, vorplex.pluginLinhas, vorplex.pluginFundo);

  const nomes = ['histograma', 'curva', 'rosa', 'alongamento'];

  const novaMoldura = (nome) => {
    const canvas = elemento('canvas', {role: 'img', id: `grafico-${nome}`});
    const botao = elemento('button', {type: 'button', class: 'discreto',
                                      'aria-label': `${t('baixaPng')}: ${t(nome)}`}, t('baixaPng'));
    botao.addEventListener('click', () => vorplex.figuraEmCanvas(nome)
      .toBlob((blob) => vorplex.baixa(`${nome}.png`, blob), 'image/png'));
    const figura = elemento('figure', {class: 'grafico'},
      elemento('figcaption', {}, elemento('h3', {}, t(nome)), botao),
      elemento('div', {class: 'tela'}, canvas));
    const dica = {rosa: 'dicaRosa', curva: 'dicaFaixa', histograma: 'dicaBarra', alongamento: 'dicaBarra'}[nome];
    if (dica) figura.append(elemento('p', {class: `dica ${dica}`}, t(dica)));
    document.getElementById('graficos').append(figura);
    return canvas;
  };

  // The plot as a picture with its title and filter above it.
  vorplex.figuraEmCanvas = (nome) => {
    const chart = vorplex.graficos[nome];
    const {canvas} = chart;
    const pixel = chart.currentDevicePixelRatio;
    const alto = 48 * pixel;
    const saida = elemento('canvas', {width: canvas.width, height: canvas.height + alto});
    const ctx = saida.getContext('2d');
    ctx.fillStyle = vorplex.tema.papel;
    ctx.fillRect(0, 0, saida.width, saida.height);
    ctx.fillStyle = vorplex.tema.tinta;
    ctx.font = `600 ${16 * pixel}px ${Chart.defaults.font.family}`;
    ctx.fillText(`${vorplex.ajustes.titulo} – ${t(nome)}`, 10 * pixel, 20 * pixel,
                 saida.width - 20 * pixel);
    ctx.font = `${11 * pixel}px ${Chart.defaults.font.family}`;
    ctx.fillText(vorplex.filtroDito(), 10 * pixel, 38 * pixel, saida.width - 20 * pixel);
    ctx.drawImage(canvas, 0, alto);
    return saida;
  };

  const molduras = Object.fromEntries(nomes.map((nome) => [nome, novaMoldura(nome)]));
  let planos = {};

  // New plots for other sizes, weights, classes or colours.
  vorplex.refazGraficos = () => {
    for (const chart of Object.values(vorplex.graficos ?? {})) chart.destroy();
    const tamanhos = vorplex.prepareTamanhos();
    const presentes = vorplex.letras.filter((letra) => vorplex.graos.some((g) => g.letra === letra));
    Chart.defaults.color = vorplex.tema.fraca;
    planos = {histograma: vorplex.novoHistograma(tamanhos, presentes), curva: vorplex.novaCurva(tamanhos),
              rosa: vorplex.novaRosa(), alongamento: vorplex.novoAlongamento(presentes)};
    vorplex.graficos = Object.fromEntries(
      nomes.map((nome) => [nome, new Chart(molduras[nome], planos[nome].config)]));
  };

  // The band of the curve, from the intervals of its percentiles.
  const faixa = (intervalos) =>
    vorplex.percentis.flatMap((p) => intervalos?.d[p] ? [[p, ...intervalos.d[p]]] : []);
  vorplex.mostraFaixa = ({intervalos}) => {
    planos.curva.config.options.plugins.faixa = {pontos: faixa(intervalos)};
    vorplex.graficos.curva.update('none');
  };

  // Draws what the selected grains say.
  vorplex.mostraGraficos = (selecao) => {
    const {graos, distribuicao: {d}, intervalos} = selecao;
    const {peneiras} = vorplex.ajustes;
    const linhas = graos.length === 0 ? [] :
      [10, 50, 90].map((p) => [d[p], `D${p} ${vorplex.medida(d[p])}`]);
    const dito = linhas.length === 0 ? t('semGraos') :
      linhas.map(([, rotulo]) => `${rotulo} ${unidade}`).join(', ');
    for (const nome of nomes) {
      const {config, mostra} = planos[nome];
      mostra(selecao);
      if (nome === 'curva') config.options.plugins.faixa = {pontos: faixa(intervalos)};
      if (nome === 'histograma' || nome === 'curva') {
        // The curve is high where D90 is.
        config.options.plugins.linhas = nome === 'histograma' ? {linhas} :
          {linhas: linhas.map((linha, k) => [...linha, k === 2]), peneiras};
      }
      const chart = vorplex.graficos[nome];
      chart.update('none');
      chart.canvas.setAttribute('aria-label', t('graficoDito', t(nome), dito));
    }
  };

  // On paper a plot takes half the width, with letters of their full size.
  window.addEventListener('beforeprint', () => {
    for (const chart of Object.values(vorplex.graficos)) chart.resize(330, 228);
  });
  window.addEventListener('afterprint', () => {
    for (const chart of Object.values(vorplex.graficos)) chart.resize();
  });

  vorplex.refazGraficos();
  vorplex.quandoMudaOTema(() => {
    vorplex.refazGraficos();
    if (vorplex.selecao) vorplex.mostraGraficos(vorplex.selecao);
  });
}
