'use strict';
// The summary and the tables of numbers.

{
  const {t, numero, medida, inteiro, porcento, elemento, ajustes, unidade, calibrada} = vorplex;
  const {peneiras} = ajustes;
  const porId = (id) => document.getElementById(id);
  const areaDasFotos = vorplex.fotos.reduce((s, f) => s + f.rows * f.cols * f.lado ** 2, 0);

  vorplex.mostraFichas = ({graos, distribuicao: {d, media, desvio}}) => {
    const valor = (x) => x === null ? '–' : `${medida(x)} ${unidade}`;
    const fichas = [
      [t('graos'), inteiro(graos.length)],
      [t('fotografias'), inteiro(vorplex.fotos.length)],
      ['D10', valor(d[10])], ['D50', valor(d[50]), 'forte'], ['D90', valor(d[90])],
      [t('media'), valor(media)], [t('desvio'), valor(desvio)],
    ];
    porId('fichas').replaceChildren(...fichas.map(([nome, texto, classe]) =>
      elemento('div', classe ? {class: classe} : {}, elemento('dt', {}, nome),
               elemento('dd', {}, texto))));
  };

  const linha = (nome, ...valores) => elemento('tr', {}, elemento('th', {scope: 'row'}, nome),
    ...valores.map((v) => elemento('td', {class: 'n'}, v)));
  const cabeca = (...nomes) => elemento('thead', {}, elemento('tr', {}, ...nomes.map((nome, k) =>
    elemento('th', k > 0 ? {class: 'n', scope: 'col'} : {scope: 'col'}, nome))));

  // The graphic measures; marked where the finest and coarsest grain stand for percentiles that the
  // curve does not reach. Without a scale there is no mean in phi.
  const linhasDeFolkWard = (s, curva) => {
    const marca = curva.graos.length > 0 && !vorplex.alcancaFolkWard(curva) ? ' †' : '';
    const valor = (x) => x === null ? '–' : `${medida(x)}${marca}`;
    const palavra = s.selecao === null || marca ? '' : `: ${t(vorplex.nomeDaSelecao(s.selecao))}`;
    porId('nota-fw').hidden = marca === '';
    return [
      linha(`${t('mediaPhi')}, φ`, calibrada ? valor(s.mediaPhi) : '–'),
      linha(`${t('selecao')}, φ${palavra}`, valor(s.selecao)),
      linha(t('assimetria'), valor(s.assimetria)), linha(t('curtose'), valor(s.curtose)),
    ];
  };

  vorplex.mostraEstatisticas = ({graos, curva, distribuicao: s}) => {
    const naBorda = graos.reduce((soma, g) => soma + g.borda, 0);
    const densidade = areaDasFotos > 0 ? graos.length / areaDasFotos : null;
    porId('percentis').replaceChildren(elemento('tbody', {},
      ...vorplex.percentis.map((p) => linha(`D${p} (${unidade})`, medida(s.d[p])))));
    porId('estatisticas').replaceChildren(elemento('tbody', {},
      linha(`${t('media')} (${unidade})`, medida(s.media)),
      linha(`${t('desvio')} (${unidade})`, medida(s.desvio)),
      linha(t('cu'), medida(s.uniformidade)), linha(t('cc'), medida(s.curvatura)),
      ...linhasDeFolkWard(s, curva),
      linha(t('densidade', `${unidade}²`), medida(densidade)),
      linha(t('naBorda'), inteiro(naBorda))));
  };

  vorplex.mostraPeneiras = ({classes}) => {
    const nome = ({de, ate}) => de === 0 ? `${t('fundo')} (< ${numero(ate)})` :
      ate === Infinity ? `≥ ${numero(de)}` : `${numero(de)} – ${numero(ate)}`;
    porId('peneiras').replaceChildren(
      cabeca(t('classe', unidade), t('graos'), t('retida'), t('passante')),
      elemento('tbody', {}, ...classes.slice().reverse().map((c) =>
        linha(nome(c), inteiro(c.graos), porcento(c.retida), porcento(c.passante)))));
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
