'use strict';
// The bar of the corrections: how many there are, undo, save, discard.

{
  const {t, elemento, inteiro, ajustes} = vorplex;
  const raiz = document.getElementById('correcoes');
  const GESTOS = ['rejeita', 'recupera', 'desenha'];
  const conta = (n) => GESTOS.filter((g) => n[g] > 0)
    .map((g) => t(n[g] === 1 ? `um_${g}` : `n_${g}`, inteiro(n[g]))).join(', ');

  const contagem = elemento('span', {role: 'status'});
  const botao = (chave, faz, classe = '') => {
    const b = elemento('button', {type: 'button', class: classe, id: `correcoes-${chave}`}, t(chave));
    b.addEventListener('click', faz);
    return b;
  };
  raiz.append(contagem, botao('desfaz', () => vorplex.desfaz()),
    botao('salvaCorrecoes', () => {
      vorplex.baixa('correcoes.json', new Blob([vorplex.textoDasCorrecoes()], {type: 'application/json'}));
      vorplex.esqueceGuardadas();
      raiz.classList.add('salvas');
    }, 'principal'),
    botao('descarta', () => {
      if (window.confirm(t('descartaMesmo'))) vorplex.descarta();
    }));
  raiz.append(elemento('p', {class: 'dica'}, t('comoAplicar')));

  vorplex.mostraCorrecoes = (feitas) => {
    raiz.hidden = feitas.length === 0;
    raiz.classList.remove('salvas');
    const n = {rejeita: 0, recupera: 0, desenha: 0};
    for (const {gesto} of feitas) ++n[gesto];
    contagem.textContent = t('correcoesFeitas', conta(n));
  };

  document.addEventListener('keydown', (evento) => {
    const desfazer = (evento.ctrlKey || evento.metaKey) && evento.key.toLowerCase() === 'z';
    if (!desfazer || raiz.hidden || evento.target.matches('input[type=text]')) return;
    evento.preventDefault();
    vorplex.desfaz();
  });

  // What this run has applied.
  const aplicadas = ajustes.correcoes;
  if (aplicadas) {
    const nota = document.getElementById('corrigidas');
    nota.hidden = false;
    nota.textContent = t('correcoesAplicadas', conta(aplicadas) || inteiro(0)) +
      (aplicadas.semPar > 0 ? ` ${t('correcoesSemPar', inteiro(aplicadas.semPar))}` : '');
  }
}
