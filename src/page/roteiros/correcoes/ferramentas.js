'use strict';
// The tools beside a photograph: look, reject by clicking, draw a family; and the candidates that the
// search has rejected, to be brought back.

{
  const {t, elemento, letras} = vorplex;

  // The tools of a viewer. They tell it by `visor.ferramenta` what a click does.
  vorplex.novasFerramentas = (visor, mudou) => {
    visor.ferramenta = '';
    visor.comCandidatos = false;
    if (!vorplex.corrigivel || !visor.foto.soma) return '';
    const nomes = {'': t('olhar'), rejeita: t('rejeitar'), ...Object.fromEntries(letras.map((l) => [l, t(`um${l}`)]))};
    const botoes = Object.entries(nomes).map(([chave, nome]) => {
      const b = elemento('button', {type: 'button', 'data-ferramenta': chave, 'aria-pressed': chave === ''}, nome);
      b.addEventListener('click', () => {
        visor.ferramenta = chave;
        for (const outro of botoes) outro.setAttribute('aria-pressed', outro === b);
        dica.textContent = t({'': 'dicaOlhar', rejeita: 'dicaRejeitar', c: 'dicaDoCentro', q: 'dicaDoCentro',
                              r: 'dicaDoEixo', e: 'dicaDoEixo'}[chave]);
        mudou();
      });
      return b;
    });
    const dica = elemento('p', {class: 'dica'}, t('dicaOlhar'));
    const caixa = elemento('input', {type: 'checkbox'});
    caixa.addEventListener('change', () => {
      visor.comCandidatos = caixa.checked;
      mudou();
    });
    return elemento('details', {class: 'ferramentas', open: ''},
      elemento('summary', {}, t('corrigir')),
      elemento('div', {class: 'botoes-corrigir'}, ...botoes.slice(0, 2),
               elemento('span', {}, t('desenhar')), ...botoes.slice(2)),
      elemento('label', {}, caixa, ' ', t('mostraCandidatos', vorplex.inteiro(visor.foto.candidatos.length))),
      dica);
  };

  // What can be done with the grain that is chosen.
  vorplex.acoesDoGrao = (g, corrige) => {
    if (!vorplex.corrigivel || !g.foto.soma) return [];
    const b = elemento('button', {type: 'button', class: 'acao'}, t(g.candidato ? 'trazer' : 'rejeitar'));
    b.addEventListener('click', corrige);
    return [b];
  };
}
