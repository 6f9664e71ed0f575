'use strict';
// What follows a change of the filter, of the measures or of the corrections.

{
  const {t, elemento, ajustes} = vorplex;

  const mostraNumeros = (selecao) => {
    vorplex.mostraFichas(selecao);
    vorplex.mostraEstatisticas(selecao);
    vorplex.mostraPeneiras(selecao);
  };

  // Everything after a change.
  vorplex.atualiza = () => {
    const graos = vorplex.graos.filter(vorplex.passa);
    const curva = vorplex.curva(graos);
    const selecao = {graos, curva, distribuicao: vorplex.distribui(curva),
                     classes: vorplex.peneira(curva, ajustes.peneiras)};
    vorplex.selecao = selecao;
    vorplex.mostraContagem(selecao);
    mostraNumeros(selecao);
    vorplex.mostraWentworth(selecao);
    vorplex.mostraGraficos(selecao);
    vorplex.mostraFotos(graos);
    vorplex.refazGaleria();
    vorplex.intervalosAosPoucos(selecao, ajustes.peneiras, (intervalos) => {
      selecao.intervalos = intervalos;
      mostraNumeros(selecao);
      vorplex.mostraFaixa(selecao);
    });
  };

  // Once a frame, however often the slider speaks.
  let marcada = false;
  vorplex.depois = () => {
    if (marcada) return;
    marcada = true;
    requestAnimationFrame(() => {
      marcada = false;
      vorplex.atualiza();
    });
  };

  if (ajustes.comando !== '') {
    document.getElementById('comando').append(t('feito'), elemento('code', {}, ajustes.comando));
  }
  vorplex.atualiza();
}
