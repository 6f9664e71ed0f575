'use strict';
// What follows a change of the filter, of the measures or of the corrections.

{
  const {t, elemento, ajustes} = vorplex;

  const mostraNumeros = (selecao) => {
    vorplex.mostraFichas(selecao);
    vorplex.mostraEstatisticas(selecao);
    vorplex.mostraPeneiras(selecao);
  };

  // Intervals take long where there are many grains: they wait until the slider rests.
  const MUITOS = 3000;
  const pedeIntervalos = (selecao) => {
    vorplex.intervalosAosPoucos(selecao, ajustes.peneiras, (intervalos) => {
      selecao.intervalos = intervalos;
      mostraNumeros(selecao);
      vorplex.mostraFaixa(selecao);
    });
  };
  const pedeIntervalosLogo = vorplex.depoisDe(200, pedeIntervalos);

  // Everything after a change.
  vorplex.atualiza = () => {
    const todos = vorplex.graos.filter(vorplex.passa);
    const graos = todos.filter((g) => g.vezes > 0);
    const curva = vorplex.curva(graos);
    const selecao = {todos, graos, curva, distribuicao: vorplex.distribui(curva),
                     classes: vorplex.peneira(curva, ajustes.peneiras)};
    vorplex.selecao = selecao;
    vorplex.mostraContagem(selecao);
    mostraNumeros(selecao);
    vorplex.mostraWentworth(selecao);
    vorplex.mostraGraficos(selecao);
    vorplex.mostraGrupos(graos);
    vorplex.mostraFotos(todos);
    vorplex.refazGaleria();
    if (graos.length > MUITOS) pedeIntervalosLogo(selecao); else pedeIntervalos(selecao);
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
  vorplex.retomaCorrecoes();
  vorplex.atualiza();
}
