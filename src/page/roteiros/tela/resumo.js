'use strict';
// The summary and the tables of numbers.

{
  const {t, numero, medida, inteiro, porcento, elemento, ajustes, unidade, calibrada} = vorplex;
  const {peneiras} = ajustes;
  const porId = (id) => document.getElementById(id);
  const areaDasFotos = vorplex.fotos.reduce((s, f) => s + f.rows * f.cols * f.lado ** 2, 0);

  // The ends of an interval; dots as long as it is not there yet.
  const intervalo = (intervalos, qual, escreve = medida) => {
    if (intervalos === undefined) return '…';
    const limites = intervalos === null ? null : qual(intervalos);
    return limites ? limites.map(escreve).join(' – ') : '–';
  };

  vorplex.mostraFichas = ({graos, distribuicao: {d, media, desvio}, intervalos}) => {
    const valor = (x, qual) => x === null ? ['–'] : [`${medida(x)} ${unidade} `,
      elemento('small', {class: 'intervalo'}, intervalo(intervalos, qual))];
    const deD = (p) => valor(d[p], (s) => s.d[p]);
    const fichas = [
      [t('graos'), [inteiro(graos.length)]],
      [t('fotografias'), [inteiro(vorplex.fotos.length)]],
      ['D10', deD(10)], ['D50', deD(50), 'forte'], ['D90', deD(90)],
      [t('media'), valor(media, (s) => s.media)], [t('desvio'), valor(desvio, (s) => s.desvio)],
    ];
    porId('fichas').replaceChildren(...fichas.map(([nome, valores, classe]) =>
      elemento('div', classe ? {class: classe} : {}, elemento('dt', {}, nome),
               elemento('dd', {}, ...valores))));
    const fotos = new Set(graos.map((g) => g.foto)).size;
    porId('nota-intervalos').textContent =
      t('notaIntervalos') + (fotos === 1 ? ` ${t('notaUmaFoto')}` : '');
    porId('nota-borda').textContent = t(`nota_${ajustes.borda}`);
    porId('nota-intervalos').hidden = graos.length < 2;
  };

  const linha = (nome, ...valores) => elemento('tr', {}, elemento('th', {scope: 'row'}, nome),
    ...valores.map((v) => elemento('td', {class: 'n'}, v)));
  const cabeca = (...nomes) => elemento('thead', {}, elemento('tr', {}, ...nomes.map((nome, k) =>
    elemento('th', {class: `${k > 0 ? 'n' : ''} ${nome === unidade ? 'simbolo' : ''}`, scope: 'col'}, nome))));

  // The graphic measures; marked where the finest and coarsest grain stand for percentiles that the
  // curve does not reach. Without a scale there is no mean in phi.
  const linhasDeFolkWard = (s, curva, intervalos) => {
    const marca = curva.graos.length > 0 && !vorplex.alcancaFolkWard(curva) ? ' †' : '';
    const valor = (x) => x === null ? '–' : `${medida(x)}${marca}`;
    const palavra = s.selecao === null || marca ? '' : `: ${t(vorplex.nomeDaSelecao(s.selecao))}`;
    porId('nota-fw').hidden = marca === '';
    const de = (nome, campo) => linha(nome, valor(s[campo]), intervalo(intervalos, (i) => i[campo]));
    return [
      calibrada ? de(`${t('mediaPhi')}, φ`, 'mediaPhi') : linha(`${t('mediaPhi')}, φ`, '–', '–'),
      de(`${t('selecao')}, φ${palavra}`, 'selecao'),
      de(t('assimetria'), 'assimetria'), de(t('curtose'), 'curtose'),
    ];
  };

  vorplex.mostraEstatisticas = ({todos, curva, distribuicao: s, intervalos}) => {
    const naBorda = todos.reduce((soma, g) => soma + g.borda, 0);
    const vezes = (g) => ajustes.borda === 'exclui' ? g.inteiro : g.vezes;
    const porArea = (quanto) => areaDasFotos > 0 ?
      todos.reduce((soma, g) => soma + vezes(g) * quanto(g), 0) / areaDasFotos : null;
    porId('percentis').replaceChildren(cabeca('', t('tamanho'), '95 %'), elemento('tbody', {},
      ...vorplex.percentis.map((p) =>
        linha(`D${p} (${unidade})`, medida(s.d[p]), intervalo(intervalos, (i) => i.d[p])))));
    const de = (nome, campo) => linha(nome, medida(s[campo]), intervalo(intervalos, (i) => i[campo]));
    porId('estatisticas').replaceChildren(cabeca('', '', '95 %'), elemento('tbody', {},
      de(`${t('media')} (${unidade})`, 'media'), de(`${t('desvio')} (${unidade})`, 'desvio'),
      de(t('cu'), 'uniformidade'), de(t('cc'), 'curvatura'),
      ...linhasDeFolkWard(s, curva, intervalos),
      linha(t('densidade', `${unidade}²`), medida(porArea(() => 1)), ''),
      linha(t('cobertura'), porcento(porArea((g) => g.area * g.foto.lado ** 2)), ''),
      linha(t('naBorda'), inteiro(naBorda), '')));
  };

  vorplex.mostraPeneiras = ({classes, intervalos}) => {
    const nome = ({de, ate}) => de === 0 ? `${t('fundo')} (< ${numero(ate)})` :
      ate === Infinity ? `≥ ${numero(de)}` : `${numero(de)} – ${numero(ate)}`;
    porId('peneiras').replaceChildren(
      cabeca(t('classe', unidade), t('graos'), t('retida'), '95 %', t('passante'), '95 %'),
      elemento('tbody', {}, ...classes.map((c, k) => linha(nome(c), inteiro(c.graos),
        porcento(c.retida), intervalo(intervalos, (s) => s.peneiras[k].retida, porcento),
        porcento(c.passante), intervalo(intervalos, (s) => s.peneiras[k].passante, porcento)))
        .reverse()));
  };

  // Sizes in mm as Wentworth wrote them: fractions below 1.
  const limite = (mm) => mm >= 1 ? numero(mm) : `1/${numero(1 / mm)}`;
  const faixa = ({de, ate}) => ate === Infinity ? `≥ ${limite(de)}` :
    de === 0 ? `< ${limite(ate)}` : `${limite(de)} – ${limite(ate)}`;

  vorplex.mostraWentworth = ({curva}) => {
    if (!calibrada) return;
    porId('wentworth').replaceChildren(
      cabeca('Wentworth', t('classe', 'mm'), t('graos'), `% (${t(vorplex.escolhas.peso)})`),
      elemento('tbody', {}, ...vorplex.porClasseDeWentworth(curva).map((c) =>
        linha(t(c.nome), faixa(c), inteiro(c.graos), porcento(c.parte)))));
  };

  porId('bloco-peneiras').hidden = peneiras.length === 0;
  porId('bloco-wentworth').hidden = !calibrada;
}
